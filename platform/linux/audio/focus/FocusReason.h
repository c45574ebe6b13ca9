// SPDX-License-Identifier: Apache-2.0
// Why the owner of a focus took it: a property that owners show on the bus, so that who loses the focus can be told.
#pragma once

#include <string>

#include "sound_manager.h"

namespace audio {

// Shows this as our own reason from now on. On the IO thread.
void showFocusReason(int reason);

// Asks the owner of the name and waits a quarter of a second at most. What an owner does not tell, or tells wrongly, is
// put down to the system. Not on the IO thread.
sound_stream_focus_change_reason_e focusReasonOf(const std::string& owner);

}  // namespace audio

// SPDX-License-Identifier: Apache-2.0
// The reason why an application took the focus. It is a D-Bus property, which the application that loses the focus
// reads.
#pragma once

#include <string>

#include "sound_manager.h"

namespace audio {

// Publishes this reason from now on. IO thread only. Throws std::runtime_error on failure.
void showFocusReason(int reason);

// Queries the owner of the name and waits for at most a quarter of a second. Without a valid reply, returns
// SOUND_STREAM_FOCUS_CHANGED_BY_SYSTEM. Not on the IO thread.
sound_stream_focus_change_reason_e focusReasonOf(const std::string& owner);

}  // namespace audio

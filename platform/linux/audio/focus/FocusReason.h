// SPDX-License-Identifier: Apache-2.0
// The reason why the owner of a focus took it: a property of an object on the bus, for the application that loses the
// focus.
#pragma once

#include <string>

#include "sound_manager.h"

namespace audio {

// Exports this reason as ours from now on. On the IO thread. Throws std::runtime_error when that fails.
void showFocusReason(int reason);

// Asks the owner of the name and waits at most a quarter of a second. Without a valid answer the reason is the system.
// Not on the IO thread.
sound_stream_focus_change_reason_e focusReasonOf(const std::string& owner);

}  // namespace audio

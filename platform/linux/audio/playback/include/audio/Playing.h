// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <optional>
#include <string>

#include "sound_manager.h"

namespace audio {

// What plays: the sound server's streams that are not paused, by the reason that their media role stands for. The value
// is the name of one of the applications that play for this reason.
using Playing = std::map<sound_stream_focus_change_reason_e, std::string>;

// Asks the server and waits. Empty when there is no answer; `late` is set when the server is connected all the same.
std::optional<Playing> whatPlays(bool* late = nullptr);

}  // namespace audio

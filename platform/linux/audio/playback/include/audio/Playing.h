// SPDX-License-Identifier: Apache-2.0
// What really plays: the sound server's streams that are not paused, by the reason that their media role stands for.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "sound_manager.h"

namespace audio {

// For each reason the name of one of the applications that play for it.
using Playing = std::map<sound_stream_focus_change_reason_e, std::string>;

// Asks the server and waits. Nothing when it cannot be asked; `late` tells that it is there, but slow.
std::optional<Playing> whatPlays(bool* late = nullptr);

}  // namespace audio

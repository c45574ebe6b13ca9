// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <optional>
#include <string>

#include "sound_manager.h"

namespace audio {

// The streams that play at the sound server, by the focus reason of their media role. The value names one of the
// applications that play for this reason.
using Playing = std::map<sound_stream_focus_change_reason_e, std::string>;

// Queries the server and waits. Empty without an answer; `late` is then true if the server is still connected.
std::optional<Playing> whatPlays(bool* late = nullptr);

}  // namespace audio

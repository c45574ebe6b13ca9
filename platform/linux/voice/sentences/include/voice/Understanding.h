// SPDX-License-Identifier: Apache-2.0
// From a sentence to the NLU result. docs/understanding.md shows both ends.
#pragma once

#include <optional>
#include <string>

#include "voice/CommandFile.h"
#include "voice/Dialogue.h"

namespace voice {

// What the sentence means in this dialogue; nothing when it is no command, or none that fits now.
std::optional<Intent> understand(const std::string& sentence, const CommandFile& commands, Dialogue& dialogue);

std::string toJson(const Intent& intent, const std::string& sentence);

}  // namespace voice

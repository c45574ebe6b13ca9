// SPDX-License-Identifier: Apache-2.0
// Converts a recognized text to an NLU result, which docs/understanding.md describes.
#pragma once

#include <optional>
#include <string>

#include "voice/Dialogue.h"
#include "voice/SentenceFile.h"

namespace voice {

// The intent of the text at this point of the dialogue; empty if no sentence matches.
std::optional<Intent> understand(const std::string& text, const SentenceFile& commands, Dialogue& dialogue);

std::string toJson(const Intent& intent, const std::string& text);

}  // namespace voice

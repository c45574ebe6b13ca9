// SPDX-License-Identifier: Apache-2.0
// What vocon_config.json says about one wake-up word.
#pragma once

#include <functional>
#include <string>

#include "sphinx/Dictionary.h"
#include "wakeup_engine.h"

namespace wakeup {

struct WakeupConfig {
    std::string phrase;                     // "hey quorbit"
    sphinx::Pronunciations pronunciations;  // of the phrase's words; others are looked up in the dictionary
    std::string model = "en-us/en-us";      // acoustic model, below the model folder or absolute
    std::string dictionary = "en-us/cmudict-en-us.dict";
    double threshold = 1e-20;   // 1e-60 to 1; smaller hears more, and more by mistake
    double speechMarginDb = 9;  // 0 to 40 dB above the room's noise counts as speech
};

// A fault that ends the reading, with the engine's own code.
struct ConfigFault {
    nuance::IWakeupListener::Error code;
    std::string detail;
};

using WarningSink = std::function<void(nuance::IWakeupListener::Warning, const std::string& detail)>;

// Reads the text of the file. Unknown keys and wrong values are warned of and left at their defaults. Throws
// ConfigFault when the text is no JSON object.
WakeupConfig parseWakeupConfig(const std::string& text, const WarningSink& warn);

}  // namespace wakeup

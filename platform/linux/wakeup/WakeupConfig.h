// SPDX-License-Identifier: Apache-2.0
// The configuration of one wake word, from vocon_config.json.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "sphinx/Dictionary.h"
#include "wakeup_engine.h"

namespace wakeup {

enum class Engine { Neural, Sphinx };

struct WakeupConfig {
    std::string wakeWord;                   // "hey quorbit"
    sphinx::Pronunciations pronunciations;  // of the wake word's words; the dictionary has the others
    std::string model = "en-us/en-us";      // acoustic model, relative to the model directory or absolute
    std::string dictionary = "en-us/cmudict-en-us.dict";
    double threshold = 1e-20;   // of PocketSphinx, 1e-60 to 1; a smaller value detects more, including false positives
    double speechMarginDb = 9;  // 0 to 40; how much louder than the room's noise speech must be
    Engine engine = Engine::Sphinx;  // Neural also uses PocketSphinx if the network cannot be used
    // The least score of a detection by the network, -20 to 20; nothing: the one that its training selected. A smaller
    // value detects more, including false positives.
    std::optional<double> neuralThreshold;
};

// A fault that makes the configuration unusable.
struct ConfigFault {
    nuance::IWakeupListener::Error code;
    std::string detail;
};

using WarningSink = std::function<void(nuance::IWakeupListener::Warning, const std::string& detail)>;

// Parses the text of the file. An unknown key or an invalid value causes a warning, and the default applies. Throws
// ConfigFault if the text is not a JSON object.
WakeupConfig parseWakeupConfig(const std::string& text, const WarningSink& warn);

}  // namespace wakeup

// SPDX-License-Identifier: Apache-2.0
// The wake engine's configuration (JSON).
#include "wakeup/WakeupConfig.h"

#include <string>

#include "Entries.h"

namespace fuzz {

void wakeupConfig(std::string_view bytes) {
    try {
        const auto config =
            wakeup::parseWakeupConfig(std::string(bytes), [](nuance::IWakeupListener::Warning, const std::string&) {});
        require(config.threshold >= 1e-60 && config.threshold <= 1, "the threshold is within its limits");
        require(config.speechMarginDb >= 0 && config.speechMarginDb <= 40, "the margin is within its limits");
        require(!config.model.empty() && !config.dictionary.empty(), "the models have paths");
        sphinx::dictionaryText(config.pronunciations);
    } catch (const wakeup::ConfigFault& fault) {
        require(!fault.detail.empty(), "a fault has a text");
    }
}

}  // namespace fuzz

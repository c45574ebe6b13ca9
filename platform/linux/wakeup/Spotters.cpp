// SPDX-License-Identifier: Apache-2.0
#include "Spotters.h"

#include <tzplatform_config.h>

#include "GatedSpotter.h"
#include "NeuralSpotter.h"
#include "SphinxSpotter.h"
#include "dlog.h"

namespace wakeup {

namespace {

std::string inDataRoot(const char* path) {
    const char* found = tzplatform_mkpath(TZPLATFORM_DATA_ROOT, path);
    return found ? found : path;
}

}  // namespace

SpotterPaths installedPaths() {
    return {inDataRoot("speech"), inDataRoot("voice/data/wakeword.head")};
}

std::unique_ptr<Spotter> makeSpotter(const WakeupConfig& config, const SpotterPaths& paths) {
    if (config.engine == Engine::Neural) {
        try {
            auto spotter = std::make_unique<NeuralSpotter>(config, paths.models, paths.head);
            return std::make_unique<GatedSpotter>(std::move(spotter), config.speechMarginDb, GatedSpotter::TwoSeconds);
        } catch (const std::exception& fault) {
            dlog_print(DLOG_WARN, "orvane-wakeup", "uses PocketSphinx: %s", fault.what());
        }
    }
    return std::make_unique<GatedSpotter>(std::make_unique<SphinxSpotter>(config), config.speechMarginDb);
}

}  // namespace wakeup

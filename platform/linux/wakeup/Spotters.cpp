// SPDX-License-Identifier: Apache-2.0
#include "Spotters.h"

#include "GatedSpotter.h"
#include "SphinxSpotter.h"

namespace wakeup {

std::unique_ptr<Spotter> makeSpotter(const WakeupConfig& config) {
    return std::make_unique<GatedSpotter>(std::make_unique<SphinxSpotter>(config), config.speechMarginDb);
}

}  // namespace wakeup

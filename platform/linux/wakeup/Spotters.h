// SPDX-License-Identifier: Apache-2.0
// Creates the spotter.
#pragma once

#include <functional>
#include <memory>

#include "Spotter.h"
#include "WakeupConfig.h"

namespace wakeup {

using SpotterFactory = std::function<std::unique_ptr<Spotter>(const WakeupConfig&)>;

// Creates the spotter for this configuration. Loads its models, which takes up to a second. Throws ConfigFault if a
// model is missing, or another std::exception.
std::unique_ptr<Spotter> makeSpotter(const WakeupConfig& config);

}  // namespace wakeup

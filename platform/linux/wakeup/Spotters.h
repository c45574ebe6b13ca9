// SPDX-License-Identifier: Apache-2.0
// The choice of a spotter.
#pragma once

#include <functional>
#include <memory>

#include "Spotter.h"
#include "WakeupConfig.h"

namespace wakeup {

using SpotterFactory = std::function<std::unique_ptr<Spotter>(const WakeupConfig&)>;

// The spotter for this configuration. Loads its models, which takes up to a second. Throws ConfigFault when one is
// missing, and std::exception.
std::unique_ptr<Spotter> makeSpotter(const WakeupConfig& config);

}  // namespace wakeup

// SPDX-License-Identifier: Apache-2.0
// Creates the spotter.
#pragma once

#include <functional>
#include <memory>

#include "Spotter.h"
#include "WakeupConfig.h"

namespace wakeup {

using SpotterFactory = std::function<std::unique_ptr<Spotter>(const WakeupConfig&)>;

struct SpotterPaths {
    std::string models;  // directory of ONNX Runtime and the network's front end
    std::string head;    // file
};
// Where they are installed.
SpotterPaths installedPaths();

// Creates the spotter for this configuration. If the network cannot be used, logs the reason and uses PocketSphinx.
// Loads the models, which takes up to a second. Throws ConfigFault if one of PocketSphinx is missing, or another
// std::exception.
std::unique_ptr<Spotter> makeSpotter(const WakeupConfig& config, const SpotterPaths& paths);

}  // namespace wakeup

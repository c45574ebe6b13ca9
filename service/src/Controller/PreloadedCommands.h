// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace OrvaneDA {

// Absolute path of the file of commands that the engine knows from the start; computed once, when the first session
// opens.
const std::string& preloadedCommandsPath();

}  // namespace OrvaneDA

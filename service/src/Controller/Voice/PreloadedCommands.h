// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace OrvaneDA {

// The absolute path of the command file that the recognition engine loads when it is ready. Computed once.
const std::string& preloadedCommandsPath();

}  // namespace OrvaneDA

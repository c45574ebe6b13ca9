// SPDX-License-Identifier: Apache-2.0
// The tree that this program was built from and in. Found from the program's own path, so that the program holds none.
#pragma once

#include <string>

namespace sim {

// What every simulated application is.
constexpr char kSimulatedApp[] = "simulator/apps/orvane-sim-app";

std::string sourceFolder();
std::string buildFolder();
// The path of a program that the same build makes, by its path below the build folder.
std::string builtProgram(const std::string& path);

}  // namespace sim

// SPDX-License-Identifier: Apache-2.0
// The source tree and build tree of this program, found from the program's own path. All functions throw
// std::runtime_error when the program is not in its build tree.
#pragma once

#include <string>

namespace sim {

// The program of all simulated applications, for builtProgram().
inline constexpr char kSimulatedApp[] = "simulator/apps/orvane-sim-app";

std::string sourceFolder();
std::string buildFolder();
// The path of a program of the same build, from its path in the build tree.
std::string builtProgram(const std::string& path);

}  // namespace sim

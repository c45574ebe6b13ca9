// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

namespace gio {

// Runs a program from the PATH, discards its output, and waits until it exits. Returns whether it exits with 0; false
// if it cannot start.
bool succeeds(const std::vector<std::string>& words);

}  // namespace gio

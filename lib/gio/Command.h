// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

namespace gio {

// Runs a program from the PATH without output and waits for its end. Returns whether it exits with 0; false if it
// cannot start.
bool succeeds(const std::vector<std::string>& words);

}  // namespace gio

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

namespace fake {

struct OutputLine {
    int flag;
    std::string text;
    size_t systemLines;  // in the system log by then
};
// What the program wrote to standard output through its log, a line a call.
std::vector<OutputLine> output();

}  // namespace fake

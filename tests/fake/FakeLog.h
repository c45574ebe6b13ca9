// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

namespace fake {

struct OutputLine {
    int flag;
    std::string text;
    size_t systemLines;  // in the system log at that time
};
// The lines that the log wrote to standard output, one per call.
std::vector<OutputLine> output();

}  // namespace fake

// SPDX-License-Identifier: Apache-2.0
// One row for each fault.
#pragma once

#include <string>

#include "Resources.h"

namespace faults {

struct Row {
    std::string fault;
    std::string reported;
    double recovery = -1;  // in seconds, from the end of the fault to the next recording; negative if there was none
    Resources before;
    Resources after;
    std::string failure;   // empty if the service did what it must
    bool skipped = false;  // `failure` says why
};

void printHeading();
void print(const Row& row);

}  // namespace faults

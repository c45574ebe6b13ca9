// SPDX-License-Identifier: Apache-2.0
// The main function of a program that measures on a simulated appliance: PROGRAM FILE [NAME...].
#pragma once

#include <appliance/Appliance.h>

#include <vector>

#include "runner/Figures.h"

namespace bench {

struct Measure {
    const char* name;
    void (*run)(sim::Appliance& appliance, Figures& figures);  // throws std::exception when it cannot measure
};

// Runs the named measures, or all, and writes the samples to FILE. After a failure the others still run. Returns the
// program's exit code.
int runMeasures(int count, char** words, const std::vector<Measure>& measures);

}  // namespace bench

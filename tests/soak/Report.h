// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "appliance/processes/Usage.h"

namespace soak {

struct Report {
    int requests = 0;
    double seconds = 0;
    std::vector<sim::Usage> samples;
    std::map<std::string, int> ends;
};

void print(const Report& report);
void writeJson(const Report& report, unsigned seed, std::ostream& file);

}  // namespace soak

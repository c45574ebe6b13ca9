// SPDX-License-Identifier: Apache-2.0
// The resources that the service uses: capture streams at the sound server, memory, open files, and threads.
#pragma once

#include <string>

#include "appliance/Appliance.h"
#include "appliance/processes/Usage.h"

namespace faults {

struct Resources : sim::Usage {
    int streams = 0;
};

// Throws std::runtime_error when the service does not run or the sound server does not answer.
Resources resourcesOf(sim::Appliance& appliance);
// Waits up to 10 s until the service uses no more than `before`, and returns what it uses then.
Resources settledResources(sim::Appliance& appliance, const Resources& before, long keptKb);
// Names what exceeds the previous values; empty if nothing does.
std::string excess(const Resources& before, const Resources& after, long keptKb);

}  // namespace faults

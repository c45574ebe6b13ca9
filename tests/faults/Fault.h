// SPDX-License-Identifier: Apache-2.0
// The faults by what they break.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "Trial.h"

namespace faults {

struct Fault {
    std::string name;
    bool quick;  // part of the short form
    // Causes the fault, waits for what the service shows, and removes the fault.
    std::function<void(Trial&)> run;
    // Memory that the process keeps, because a library cannot return it.
    long keptKb = 0;
};

using Faults = std::vector<Fault>;

// Removes the service's files in /tmp, and whatever a fault put in their place.
void removeSharedFiles();

Faults soundFaults();
Faults settingsFaults();
Faults uiFaults();
Faults hubFaults();
Faults fileFaults();
Faults busFaults();
Faults startFaults();
Faults processFaults();

}  // namespace faults

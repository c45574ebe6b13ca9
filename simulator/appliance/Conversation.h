// SPDX-License-Identifier: Apache-2.0
// What is said to the appliance, and what must come of it.
#pragma once

#include "appliance/Appliance.h"

namespace sim {

struct Turn {
    const char* command;
    const char* application;  // where it must arrive
    const char* event;
};

// Throws std::runtime_error, which names the step that did not happen.
void converse(Appliance& appliance);

}  // namespace sim

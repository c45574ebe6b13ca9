// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "appliance/Appliance.h"

namespace sim {

// Speaks a series of commands to the appliance and changes its household. Throws std::runtime_error with a text that
// names the step that did not happen.
void converse(Appliance& appliance);

}  // namespace sim

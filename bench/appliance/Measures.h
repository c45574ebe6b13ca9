// SPDX-License-Identifier: Apache-2.0
// What is measured on a whole appliance. Each starts the service, and stops it again; throws std::runtime_error when
// something does not happen.
#pragma once

#include <appliance/Appliance.h>

#include "lib/Figures.h"

namespace bench {

void measureStartUp(sim::Appliance& appliance, Figures& figures);
void measureListening(sim::Appliance& appliance, Figures& figures);
void measureLatency(sim::Appliance& appliance, Figures& figures);
void measureLevelFile(sim::Appliance& appliance, Figures& figures);
void measureProfile(sim::Appliance& appliance, Figures& figures);

}  // namespace bench

// SPDX-License-Identifier: Apache-2.0
// The measurements on a complete appliance. Each function starts and stops the service and throws std::runtime_error
// when it cannot measure.
#pragma once

#include <appliance/Appliance.h>

#include "runner/Figures.h"

namespace bench {

void measureStartUp(sim::Appliance& appliance, Figures& figures);
void measureListening(sim::Appliance& appliance, Figures& figures);
void measureLatency(sim::Appliance& appliance, Figures& figures);
void measureLevelFile(sim::Appliance& appliance, Figures& figures);
void measureProfile(sim::Appliance& appliance, Figures& figures);

}  // namespace bench

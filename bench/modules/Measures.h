// SPDX-License-Identifier: Apache-2.0
// What is measured of the rooms by themselves, in the benchmark's own process beside the appliance's buses, settings
// and sound server. Each throws std::runtime_error when something does not happen.
#pragma once

#include <appliance/Appliance.h>

#include "lib/Figures.h"

namespace bench {

void measureSettings(sim::Appliance& appliance, Figures& figures);
void measureMessages(sim::Appliance& appliance, Figures& figures);
void measureFades(sim::Appliance& appliance, Figures& figures);
void measureRecognition(sim::Appliance& appliance, Figures& figures);

// What this program does as another process: changes a setting again and again; sends every message back.
inline constexpr char kChangeSettings[] = "--change-settings";
inline constexpr char kSendBack[] = "--send-back";
int changeSettings();
int sendBack();

}  // namespace bench

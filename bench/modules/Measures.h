// SPDX-License-Identifier: Apache-2.0
// The measurements of platform modules. The modules run in the benchmark's process and use the appliance's buses,
// settings, and sound server. Each function throws std::runtime_error when it cannot measure.
#pragma once

#include <appliance/Appliance.h>

#include "runner/Figures.h"

namespace bench {

void measureSettings(sim::Appliance& appliance, Figures& figures);
void measureMessages(sim::Appliance& appliance, Figures& figures);
void measureFades(sim::Appliance& appliance, Figures& figures);
void measureRecognition(sim::Appliance& appliance, Figures& figures);

// This program as the second process of a measurement: changes a setting repeatedly, or returns every message.
inline constexpr char kChangeSettings[] = "--change-settings";
inline constexpr char kSendBack[] = "--send-back";
int changeSettings();
int sendBack();

}  // namespace bench

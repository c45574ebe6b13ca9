// SPDX-License-Identifier: Apache-2.0
// org.orvane.sim.Control1: how tests control a simulated application.
#pragma once

#include <functional>
#include <string>

#include "lib/Bus.h"

namespace sim {

// `handler` runs for every call of Do. The caller receives the text of an exception that it throws.
void serveControl(Bus& bus, const std::function<void(const std::string& action, const std::string& argument)>& handler);
// Calls Do. Throws std::runtime_error with the handler's text, or when the application is not on the bus.
void control(Bus& bus, const std::string& application, const std::string& action, const std::string& argument);

}  // namespace sim

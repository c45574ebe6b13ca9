// SPDX-License-Identifier: Apache-2.0
// org.orvane.sim.Control1: how tests control a simulated application.
#pragma once

#include <functional>
#include <string>

#include "gio/Connection.h"

namespace sim {

// `handler` runs on the connection's context for every call of Do. If it throws, the caller receives the exception's
// text.
gio::Registration exportControl(
    const gio::Connection& bus,
    const std::function<void(const std::string& action, const std::string& argument)>& handler);
// Calls Do. Throws gio::CallError with the handler's text, or when the application is not on the bus.
void control(const gio::Connection& bus, const std::string& application, const std::string& action,
             const std::string& argument);

}  // namespace sim

// SPDX-License-Identifier: Apache-2.0
// org.orvane.sim.Control1: orders to a simulated application itself, as tests give them.
#pragma once

#include <functional>
#include <string>

#include "lib/Bus.h"

namespace sim {

// `handler` may throw std::exception: the caller gets its text.
void serveOrders(Bus& bus, const std::function<void(const std::string& order, const std::string& argument)>& handler);
// Throws std::runtime_error with the handler's text, or when there is nobody.
void order(Bus& bus, const std::string& application, const std::string& order, const std::string& argument);

}  // namespace sim

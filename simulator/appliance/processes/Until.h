// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>

namespace sim {

// Waits until the condition is true. After `seconds`, throws std::runtime_error with `what`, a clause such as "the
// service listens". Throws Interrupted when a signal arrives (see Interrupt.h).
void until(const std::string& what, const std::function<bool()>& condition, double seconds = 10);

}  // namespace sim

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

namespace sim {

// Runs `action` once on the default main context, after this time. An exception from it is printed. Any thread.
void later(unsigned milliseconds, std::function<void()> action);

}  // namespace sim

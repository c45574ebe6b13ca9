// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

namespace sim {

// Runs `action` once on the default main context, after this time. Prints an exception that it throws. Any thread.
void later(unsigned milliseconds, std::function<void()> action);

}  // namespace sim

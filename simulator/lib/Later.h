// SPDX-License-Identifier: Apache-2.0
// Something to be done by the main loop, once.
#pragma once

#include <functional>

namespace sim {

// On the thread of the default main context, after this time.
void later(unsigned milliseconds, std::function<void()> action);

}  // namespace sim

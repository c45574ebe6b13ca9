// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>

namespace appfw {

// From now on, the main loop feeds the watchdog of the service manager three times per limit, unless the limit is zero.
// It stops feeding while supervised work hangs, so that the manager ends and restarts the service. Main loop only.
void startWatchdog(std::chrono::duration<double> limit);

}  // namespace appfw

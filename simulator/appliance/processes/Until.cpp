// SPDX-License-Identifier: Apache-2.0
#include "appliance/processes/Until.h"

#include <unistd.h>

#include <stdexcept>

#include "appliance/processes/Interrupt.h"
#include "shared/Record.h"

namespace sim {

namespace {

constexpr useconds_t kPollMicroseconds = 5000;

}  // namespace

void until(const std::string& what, const std::function<bool()>& condition, double seconds) {
    for (const double end = monotonicNow() + seconds; !condition(); usleep(kPollMicroseconds)) {
        endIfInterrupted();
        if (monotonicNow() > end) {
            throw std::runtime_error("timed out waiting until " + what);
        }
    }
}

}  // namespace sim

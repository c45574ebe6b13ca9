// SPDX-License-Identifier: Apache-2.0
#include "appliance/processes/Interrupt.h"

#include <signal.h>

#include <atomic>

namespace sim {

namespace {

std::atomic<int> caught{0};

void onSignal(int number) noexcept {
    int none = 0;
    caught.compare_exchange_strong(none, number);
}

}  // namespace

void catchInterrupts() {
    signal(SIGINT, onSignal);
    signal(SIGTERM, onSignal);
}

int interrupt() {
    return caught;
}

void endIfInterrupted() {
    if (caught != 0) {
        throw Interrupted{caught};
    }
}

}  // namespace sim

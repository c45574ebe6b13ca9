// SPDX-License-Identifier: Apache-2.0
// Ctrl-C and SIGTERM end a run at its next wait, so that everything that it started ends in order.
#pragma once

namespace sim {

// Not derived from std::exception: code that retries after a failure does not catch it.
struct Interrupted {
    int signal;
};

// From now on, both signals are stored and do not end the process.
void catchInterrupts();
// The first signal that arrived, or 0.
int interrupt();
// Throws Interrupted when a signal has arrived.
void endIfInterrupted();

}  // namespace sim

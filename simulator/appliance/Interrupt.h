// SPDX-License-Identifier: Apache-2.0
// Ctrl-C and SIGTERM end a run where it waits, so that everything that it started ends in order.
#pragma once

namespace sim {

// No std::exception: who tries something again does not try again after this.
struct Interrupted {
    int signal;
};

// From now on both signals are remembered instead of ending the process. Without this nobody is interrupted.
void catchInterrupts();
// The first that has come, or 0.
int interrupt();
// Throws Interrupted when one has come.
void endIfInterrupted();

}  // namespace sim

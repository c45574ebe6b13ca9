// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

// Runs `work` on the main loop, later, in the order of the calls. Any thread; exceptions of `work` end the process.
// Throws process::Ended when the process is exiting.
void postToMainLoop(std::function<void()> work);

// Call this before the main loop is shut down. Drops queued work and all work posted later.
void closeMainLoopPost();

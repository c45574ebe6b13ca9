// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

// Runs `work` on the main loop, later, in the order of the calls. Any thread; exceptions end the process.
void postToMainLoop(std::function<void()> work);

// Before the main loop is shut down: what waits and what is posted from now on is dropped.
void closeMainLoopPost();

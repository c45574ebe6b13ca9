#pragma once

#include <functional>

// Runs `work` on the main loop, later, in the order of the calls. Any thread; exceptions end the process.
void postToMainLoop(std::function<void()> work);

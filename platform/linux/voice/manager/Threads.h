// SPDX-License-Identifier: Apache-2.0
// Threads that each run one function. One thread may use this object.
#pragma once

#include <functional>
#include <future>
#include <vector>

namespace voice {

class Threads {
public:
    // An exception from the function is logged with the name. Throws std::system_error if the thread cannot start.
    void start(const char* name, std::function<void()> function);
    // Frees the resources of finished threads.
    void reap();
    // Waits for every thread.
    void join() { mRunning.clear(); }

private:
    std::vector<std::future<void>> mRunning;  // each destructor waits for its thread
};

}  // namespace voice

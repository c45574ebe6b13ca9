// SPDX-License-Identifier: Apache-2.0
// Threads that run one function each. Used on one thread.
#pragma once

#include <functional>
#include <future>
#include <vector>

namespace voice {

class Threads {
public:
    // An exception of the function is logged with the name.
    void start(const char* name, std::function<void()> function);
    // Frees what the threads that have ended still hold.
    void reap();
    // Waits for every thread.
    void join() { mRunning.clear(); }

private:
    std::vector<std::future<void>> mRunning;  // the destructor of each waits
};

}  // namespace voice

// SPDX-License-Identifier: Apache-2.0
#include "Threads.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "process/Guard.h"

namespace voice {

void Threads::start(const char* name, std::function<void()> function) {
    reap();
    mRunning.push_back(
        std::async(std::launch::async, [name, function = std::move(function)] { process::contained(name, function); }));
}

void Threads::reap() {
    const auto hasEnded = [](const std::future<void>& thread) {
        return thread.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
    };
    mRunning.erase(std::remove_if(mRunning.begin(), mRunning.end(), hasEnded), mRunning.end());
}

}  // namespace voice

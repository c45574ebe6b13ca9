// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <thread>

// Waits until the condition is true; false after 20 seconds.
template <typename Condition>
bool eventually(Condition condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::yield();
    }
    return true;
}

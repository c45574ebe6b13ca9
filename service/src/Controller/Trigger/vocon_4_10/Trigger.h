// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <functional>

namespace OrvaneDA {

// A source that starts a voice interaction.
class Trigger {
public:
    Trigger() = default;
    virtual ~Trigger() = default;
    Trigger(const Trigger&) = delete;
    Trigger& operator=(const Trigger&) = delete;

    // Given the confidence level, on the thread on which the trigger fires. Set before the first start.
    void setCallback(std::function<void(int)> callback);

    virtual void start() {}
    virtual void stop() {}
    // Fires without a cause.
    virtual void forceShot() {}
    virtual void _shot(int level);

protected:
    std::atomic<int> mEnabled{0};  // 1 while started
    std::function<void(int)> mCallback;
};

}  // namespace OrvaneDA

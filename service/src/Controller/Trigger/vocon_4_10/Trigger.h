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

    // Set before the first start. The callback receives the confidence level.
    void setCallback(std::function<void(int)> callback);

    virtual void start() {}
    virtual void stop() {}
    // Fires without a detection.
    virtual void forceShot() {}
    virtual void _shot(int level);

protected:
    std::atomic<int> mEnabled{0};  // 1 while started; read only by this class's _shot, which WuWTrigger overrides
    std::function<void(int)> mCallback;
};

}  // namespace OrvaneDA

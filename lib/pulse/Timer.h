// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <pulse/pulseaudio.h>

#include <chrono>
#include <functional>

namespace pulse {

// Calls `then` once on the loop, unless the timer is destroyed first. Created and destroyed under the loop's lock;
// `then` may destroy it.
class Timer {
public:
    Timer(pa_mainloop_api* loop, std::chrono::milliseconds delay, std::function<void()> then);
    ~Timer();
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

private:
    static void ring(pa_mainloop_api* loop, pa_time_event* event, const timeval* when, void* self) noexcept;

    pa_mainloop_api* mLoop;
    std::function<void()> mThen;
    pa_time_event* mEvent;
};

}  // namespace pulse

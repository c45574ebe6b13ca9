// SPDX-License-Identifier: Apache-2.0
#include "pulse/Timer.h"

#include <utility>

namespace pulse {

Timer::Timer(pa_mainloop_api* loop, std::chrono::milliseconds delay, std::function<void()> then)
    : mLoop(loop), mThen(std::move(then)) {
    timeval when{};
    pa_timeval_add(pa_gettimeofday(&when), static_cast<pa_usec_t>(delay.count()) * PA_USEC_PER_MSEC);
    mEvent = loop->time_new(loop, &when, ring, this);
}

Timer::~Timer() {
    mLoop->time_free(mEvent);
}

void Timer::ring(pa_mainloop_api*, pa_time_event*, const timeval*, void* self) noexcept {
    const std::function<void()> then = std::move(static_cast<Timer*>(self)->mThen);
    then();
}

}  // namespace pulse

// SPDX-License-Identifier: Apache-2.0
#include "pulse/Operation.h"

#include <condition_variable>
#include <mutex>

namespace pulse {

namespace {

class Waiter {
public:
    void ended(bool done) {
        std::lock_guard lock(mMutex);
        mEnded = true;
        mDone = done;
        mChanged.notify_one();
    }
    bool wait(std::chrono::milliseconds limit) {
        std::unique_lock lock(mMutex);
        mChanged.wait_for(lock, limit, [this] { return mEnded; });
        return mDone;
    }

private:
    std::mutex mMutex;
    std::condition_variable mChanged;
    bool mEnded = false;
    bool mDone = false;
};

void stateChanged(pa_operation* operation, void* waiter) noexcept {
    const pa_operation_state_t state = pa_operation_get_state(operation);
    if (state != PA_OPERATION_RUNNING) {
        static_cast<Waiter*>(waiter)->ended(state == PA_OPERATION_DONE);
    }
}

}  // namespace

bool finish(const Mainloop& loop, Operation operation, std::chrono::milliseconds limit) {
    Waiter waiter;
    {
        const Mainloop::Lock lock(loop);
        pa_operation_set_state_callback(operation.get(), stateChanged, &waiter);
        stateChanged(operation.get(), &waiter);
    }
    const bool done = waiter.wait(limit);
    const Mainloop::Lock lock(loop);
    pa_operation_set_state_callback(operation.get(), nullptr, nullptr);
    const Operation ended = std::move(operation);  // destroyed under the lock
    return done;
}

}  // namespace pulse

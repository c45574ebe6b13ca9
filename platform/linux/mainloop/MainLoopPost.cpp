// SPDX-License-Identifier: Apache-2.0
#include "mainloop/MainLoopPost.h"

#include <Ecore.h>

#include <deque>
#include <mutex>
#include <utility>

#include "process/Owner.h"

namespace {

using Work = std::function<void()>;

// One queue for all threads keeps the order of the calls. Ecore's own queue would run work that the main
// loop's thread posts immediately, before the posting call returns.
struct Queue {
    std::mutex mutex;
    std::deque<Work> waiting;
    bool closed = false;
};

// Work that is posted in the meantime wakes the main loop again.
void runWaiting(void*) noexcept {
    auto& queue = process::shared<Queue>();
    std::deque<Work> due;
    {
        std::lock_guard lock(queue.mutex);
        due.swap(queue.waiting);
    }
    for (Work& work : due) {
        std::exchange(work, nullptr)();  // destroys what the work holds before the next one runs
    }
}

}  // namespace

void postToMainLoop(Work work) {
    auto& queue = process::shared<Queue>();
    // Held until the call to Ecore returns, so that Ecore is not shut down during the call. Ecore runs no callback
    // during it.
    std::lock_guard lock(queue.mutex);
    if (queue.closed) {
        return;
    }
    queue.waiting.push_back(std::move(work));
    if (eina_main_loop_is()) {
        ecore_job_add(runWaiting, nullptr);
    } else {
        ecore_main_loop_thread_safe_call_async(runWaiting, nullptr);
    }
}

void closeMainLoopPost() {
    auto& queue = process::shared<Queue>();
    std::deque<Work> dropped;  // destroyed without the mutex
    std::lock_guard lock(queue.mutex);
    queue.closed = true;
    dropped.swap(queue.waiting);
}

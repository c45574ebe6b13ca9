// SPDX-License-Identifier: Apache-2.0
#include "mainloop/MainLoopPost.h"

#include <Ecore.h>

#include <deque>
#include <mutex>

namespace {

using Work = std::function<void()>;

// One queue for all threads keeps the order of the calls. Ecore's own runs a call that the main loop makes at once,
// within that call.
struct Queue {
    std::mutex mutex;
    std::deque<Work> waiting;
    bool closed = false;
};

Queue& queue() {
    // Never destroyed: threads still post while the process ends.
    static Queue* instance = new Queue;
    return *instance;
}

// Work that is posted meanwhile comes with a wake-up of its own.
void runWaiting(void*) noexcept {
    std::deque<Work> due;
    {
        std::lock_guard lock(queue().mutex);
        due.swap(queue().waiting);
    }
    for (const Work& work : due) {
        work();
    }
}

}  // namespace

void postToMainLoop(Work work) {
    // Held until Ecore has been called, so that it is not shut down meanwhile. Ecore calls nobody back from here.
    std::lock_guard lock(queue().mutex);
    if (queue().closed) {
        return;
    }
    queue().waiting.push_back(std::move(work));
    if (eina_main_loop_is()) {
        ecore_job_add(runWaiting, nullptr);
    } else {
        ecore_main_loop_thread_safe_call_async(runWaiting, nullptr);
    }
}

void closeMainLoopPost() {
    std::deque<Work> dropped;  // destroyed without the mutex
    std::lock_guard lock(queue().mutex);
    queue().closed = true;
    dropped.swap(queue().waiting);
}

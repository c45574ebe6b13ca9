// SPDX-License-Identifier: Apache-2.0
#include "fake/MainLoop.h"

#include <Ecore.h>
#include <errno.h>
#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <vector>

#include "fake/Platform.h"

namespace {

struct Timer {
    Ecore_Timer* handle;
    double interval;
    double due;
    Ecore_Task_Cb callback;
    void* data;
};

struct Posted {
    Ecore_Cb asynchronous;
    Ecore_Data_Cb synchronous;
    void* data;
    bool done;
    void* result;
};

struct State {
    std::mutex mutex;
    std::condition_variable changed;
    double now = 0;
    long lastHandle = 0;
    std::vector<Timer> timers;
    std::deque<std::shared_ptr<Posted>> posted;
    std::function<void(unsigned)> sleep;
    // The thread that initializes static objects also runs the tests.
    const pid_t mainThread = static_cast<pid_t>(syscall(SYS_gettid));
};

State& state() {
    static State* instance = new State;
    return *instance;
}

const bool registered = fake::platform().addReset([] {
    std::lock_guard<std::mutex> lock(state().mutex);
    state().timers.clear();
    state().posted.clear();
    state().sleep = nullptr;
    state().now = 0;
});

}  // namespace

namespace fake {

MainLoop& MainLoop::get() {
    static MainLoop instance;
    return instance;
}

double MainLoop::now() const {
    std::lock_guard<std::mutex> lock(state().mutex);
    return state().now;
}

void MainLoop::onSleep(std::function<void(unsigned)> sleep) {
    std::lock_guard<std::mutex> lock(state().mutex);
    state().sleep = std::move(sleep);
}

bool MainLoop::onMainThread() const {
    return static_cast<pid_t>(syscall(SYS_gettid)) == state().mainThread;
}

size_t MainLoop::timers() const {
    std::lock_guard<std::mutex> lock(state().mutex);
    return state().timers.size();
}

double MainLoop::interval(size_t index) const {
    std::lock_guard<std::mutex> lock(state().mutex);
    return state().timers.at(index).interval;
}

int MainLoop::runPosted() {
    int ran = 0;
    for (;;) {
        std::shared_ptr<Posted> next;
        {
            std::lock_guard<std::mutex> lock(state().mutex);
            if (state().posted.empty()) {
                return ran;
            }
            next = state().posted.front();
            state().posted.pop_front();
        }
        void* result = nullptr;
        if (next->asynchronous) {
            next->asynchronous(next->data);
        } else {
            result = next->synchronous(next->data);
        }
        ++ran;
        std::lock_guard<std::mutex> lock(state().mutex);
        next->result = result;
        next->done = true;
        state().changed.notify_all();
    }
}

bool MainLoop::runUntil(const std::function<bool()>& condition) {
    return platform().waitUntil([&] {
        runPosted();
        return condition();
    });
}

void MainLoop::advance(double seconds) {
    const double end = now() + seconds;
    for (;;) {
        runPosted();
        Timer due{};
        {
            std::lock_guard<std::mutex> lock(state().mutex);
            auto first = std::min_element(state().timers.begin(), state().timers.end(),
                                          [](const Timer& a, const Timer& b) { return a.due < b.due; });
            // Sums of intervals have rounding errors; a timer that is due exactly at the end still runs.
            if (first == state().timers.end() || first->due > end + 1e-9) {
                state().now = end;
                return;
            }
            state().now = std::max(state().now, first->due);
            first->due += first->interval;
            due = *first;
        }
        if (!due.callback(due.data)) {
            std::lock_guard<std::mutex> lock(state().mutex);
            auto& timers = state().timers;
            timers.erase(std::remove_if(timers.begin(), timers.end(),
                                        [&](const Timer& timer) { return timer.handle == due.handle; }),
                         timers.end());
        }
    }
}

}  // namespace fake

extern "C" {

Ecore_Timer* ecore_timer_add(double in, Ecore_Task_Cb func, const void* data) {
    if (fake::platform().call("ecore_timer_add", {std::to_string(in)}) != 0) {
        return nullptr;
    }
    std::lock_guard<std::mutex> lock(state().mutex);
    auto handle = reinterpret_cast<Ecore_Timer*>(++state().lastHandle);
    state().timers.push_back({handle, in, state().now + in, func, const_cast<void*>(data)});
    return handle;
}

void* ecore_timer_del(Ecore_Timer* timer) {
    fake::platform().call("ecore_timer_del");
    std::lock_guard<std::mutex> lock(state().mutex);
    auto& timers = state().timers;
    auto found =
        std::find_if(timers.begin(), timers.end(), [&](const Timer& candidate) { return candidate.handle == timer; });
    if (found == timers.end()) {
        return nullptr;  // as the real one does for a timer that has ended by itself
    }
    void* data = found->data;
    timers.erase(found);
    return data;
}

void ecore_main_loop_thread_safe_call_async(Ecore_Cb callback, void* data) {
    fake::platform().call("ecore_main_loop_thread_safe_call_async");
    std::lock_guard<std::mutex> lock(state().mutex);
    state().posted.push_back(std::make_shared<Posted>(Posted{callback, nullptr, data, false, nullptr}));
}

void* ecore_main_loop_thread_safe_call_sync(Ecore_Data_Cb callback, void* data) {
    fake::platform().call("ecore_main_loop_thread_safe_call_sync");
    if (fake::mainLoop().onMainThread()) {
        return callback(data);
    }
    auto call = std::make_shared<Posted>(Posted{nullptr, callback, data, false, nullptr});
    std::unique_lock<std::mutex> lock(state().mutex);
    state().posted.push_back(call);
    state().changed.wait(lock, [&] { return call->done; });
    return call->result;
}

// The main loop's sleeps take no time here; those of the product's own threads do, unless the test replaces them.
int usleep(useconds_t microseconds) {
    if (fake::mainLoop().onMainThread()) {
        fake::platform().call("usleep", {std::to_string(microseconds)});
        return 0;
    }
    std::function<void(unsigned)> sleep;
    {
        std::lock_guard<std::mutex> lock(state().mutex);
        sleep = state().sleep;
    }
    if (sleep) {
        sleep(microseconds);
        return 0;
    }
    timespec time{static_cast<time_t>(microseconds / 1000000), static_cast<long>(microseconds % 1000000) * 1000};
    while (nanosleep(&time, &time) != 0 && errno == EINTR) {
    }
    return 0;
}

}  // extern "C"

// SPDX-License-Identifier: Apache-2.0
// A worker thread that takes one queued job a 50 ms cycle, in order. A job's condition runs on the worker; where it
// returns true, its action follows on the main loop.
#pragma once

#include <atomic>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <thread>

namespace Util {

class AsyncThread {
public:
    AsyncThread();
    // Waits for the job in hand and at most one cycle; jobs still queued are dropped unrun.
    virtual ~AsyncThread();
    AsyncThread(const AsyncThread&) = delete;
    AsyncThread& operator=(const AsyncThread&) = delete;

    // Any thread; returns at once. The condition must not be empty: the worker would end the process.
    void asyncCall(
        const std::function<bool()>& condition, const std::function<void()>& action = [] {});
    // Runs the action on the main loop and waits for it.
    void syncCallEcore(const std::function<void()>& action);

private:
    struct Job {
        std::function<bool()> condition;
        std::function<void()> action;
    };

    void loop();
    std::unique_ptr<Job> take();
    static void runPosted(void* job) noexcept;
    static void* runPostedSync(void* job) noexcept;

    std::unique_ptr<std::thread> mThread;
    std::mutex mMutex;  // guards mJobs
    std::list<std::unique_ptr<Job>> mJobs;
    std::atomic<bool> mStop{false};
};

}  // namespace Util

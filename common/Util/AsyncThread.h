// SPDX-License-Identifier: Apache-2.0
// A worker thread that runs queued jobs in order, at most one every 50 ms. A job's condition runs on the worker; if it
// returns true, the job's action runs on the main loop.
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
    // Waits for the running job and up to 50 ms more. Jobs that are still queued do not run.
    virtual ~AsyncThread();
    AsyncThread(const AsyncThread&) = delete;
    AsyncThread& operator=(const AsyncThread&) = delete;

    // Any thread; returns immediately. If the worker could not be started earlier, tries again; logs a failure, after
    // which the job waits for a later call. An empty condition ends the process when the worker reaches it.
    void asyncCall(
        const std::function<bool()>& condition, const std::function<void()>& action = [] {});
    // Runs the action on the main loop and waits for it. Any thread.
    void syncCallEcore(const std::function<void()>& action);

private:
    struct Job {
        std::function<bool()> condition;
        std::function<void()> action;
    };

    void startWorker();
    void loop();
    std::unique_ptr<Job> take();
    static void runPosted(void* job) noexcept;
    static void* runPostedSync(void* job) noexcept;

    std::unique_ptr<std::thread> mThread;
    std::mutex mMutex;  // guards mJobs; between construction and destruction, also mThread
    std::list<std::unique_ptr<Job>> mJobs;
    std::atomic<bool> mStop{false};
};

}  // namespace Util

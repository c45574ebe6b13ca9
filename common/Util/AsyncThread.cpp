// SPDX-License-Identifier: Apache-2.0
#include "Util/AsyncThread.h"

#include <Ecore.h>
#include <errno.h>
#include <time.h>

#include <exception>

#include "Util/Log.h"

namespace Util {

namespace {

// Paces the worker, even while more jobs are queued.
void sleepOneCycle() {
    timespec time{0, 50'000'000};
    while (nanosleep(&time, &time) != 0 && errno == EINTR) {
    }
}

}  // namespace

AsyncThread::AsyncThread() {
    startWorker();
}

AsyncThread::~AsyncThread() {
    mStop = true;
    if (mThread != nullptr) {
        mThread->join();
    }
}

void AsyncThread::startWorker() {
    try {
        mThread = std::make_unique<std::thread>([this] { loop(); });
    } catch (const std::exception&) {
        LOGE("Failed to start the worker");
    }
}

void AsyncThread::asyncCall(const std::function<bool()>& condition, const std::function<void()>& action) {
    std::lock_guard<std::mutex> lock(mMutex);
    mJobs.push_back(std::make_unique<Job>(Job{condition, action}));
    if (mThread == nullptr) {
        startWorker();
    }
}

void AsyncThread::syncCallEcore(const std::function<void()>& action) {
    ecore_main_loop_thread_safe_call_sync(runPostedSync, new Job{nullptr, action});
}

std::unique_ptr<AsyncThread::Job> AsyncThread::take() {
    std::lock_guard<std::mutex> lock(mMutex);
    if (mJobs.empty()) {
        return nullptr;
    }
    std::unique_ptr<Job> job = std::move(mJobs.front());
    mJobs.pop_front();
    return job;
}

void AsyncThread::loop() {
    while (!mStop) {
        if (std::unique_ptr<Job> job = take()) {
            if (job->condition()) {
                ecore_main_loop_thread_safe_call_async(runPosted, job.release());
            }
        }
        if (mStop) {
            return;
        }
        sleepOneCycle();
    }
}

void AsyncThread::runPosted(void* data) noexcept {
    std::unique_ptr<Job> job(static_cast<Job*>(data));
    if (job->action) {
        job->action();
    }
}

void* AsyncThread::runPostedSync(void* data) noexcept {
    runPosted(data);
    return nullptr;
}

}  // namespace Util

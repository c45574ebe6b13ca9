// SPDX-License-Identifier: Apache-2.0
// What callbacks have reported to a test, in their order, and on which thread.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <vector>

#include "audio/SoundThread.h"
#include "process/Owner.h"

template <typename Report>
class Reports {
public:
    void add(const Report& report) {
        std::lock_guard lock(mMutex);
        mAll.push_back(report);
        mStray = mStray || !process::shared<audio::SoundThread>().isCurrent();
        mChanged.notify_all();
    }
    // False when the report does not come within ten seconds.
    bool await(const Report& report) {
        std::unique_lock lock(mMutex);
        return mChanged.wait_for(lock, std::chrono::seconds(10), [&] {
            for (const Report& each : mAll) {
                if (each == report) {
                    return true;
                }
            }
            return false;
        });
    }
    std::vector<Report> all() {
        std::lock_guard lock(mMutex);
        return mAll;
    }
    // Whether a callback ran on another thread than the sound thread.
    bool stray() {
        std::lock_guard lock(mMutex);
        return mStray;
    }

private:
    std::mutex mMutex;
    std::condition_variable mChanged;
    std::vector<Report> mAll;
    bool mStray = false;
};

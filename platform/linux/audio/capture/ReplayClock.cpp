// SPDX-License-Identifier: Apache-2.0
#include "ReplayClock.h"

#include <algorithm>
#include <map>

namespace audio {

std::shared_ptr<ReplayClock> ReplayClock::of(const std::string& path) {
    static std::mutex mutex;
    static std::map<std::string, std::shared_ptr<ReplayClock>> clocks;
    std::lock_guard lock(mutex);
    auto& clock = clocks[path];
    if (!clock) {
        clock = std::make_shared<ReplayClock>();
    }
    return clock;
}

double ReplayClock::elapsed() {
    const auto now = std::chrono::steady_clock::now();
    std::lock_guard lock(mMutex);
    if (!mStart) {
        mStart = now;
    }
    return std::chrono::duration<double>(now - *mStart).count();
}

double ReplayClock::furthest() {
    std::lock_guard lock(mMutex);
    return mFurthest;
}

void ReplayClock::reached(double seconds) {
    std::lock_guard lock(mMutex);
    mFurthest = std::max(mFurthest, seconds);
}

}  // namespace audio

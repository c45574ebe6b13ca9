// SPDX-License-Identifier: Apache-2.0
#include "ReplayClock.h"

#include <algorithm>
#include <map>

#include "process/Owner.h"

namespace audio {

namespace {

struct Clocks {
    std::mutex mutex;
    std::map<std::string, std::shared_ptr<ReplayClock>> byPath;
};

}  // namespace

std::shared_ptr<ReplayClock> ReplayClock::of(const std::string& path) {
    auto& clocks = process::shared<Clocks>();
    const std::lock_guard lock(clocks.mutex);
    auto& clock = clocks.byPath[path];
    if (!clock) {
        clock = std::make_shared<ReplayClock>();
    }
    return clock;
}

double ReplayClock::elapsed() {
    const auto now = std::chrono::steady_clock::now();
    const std::lock_guard lock(mMutex);
    if (!mStart) {
        mStart = now;
    }
    return std::chrono::duration<double>(now - *mStart).count();
}

double ReplayClock::furthest() {
    const std::lock_guard lock(mMutex);
    return mFurthest;
}

void ReplayClock::reached(double seconds) {
    const std::lock_guard lock(mMutex);
    mFurthest = std::max(mFurthest, seconds);
}

}  // namespace audio

// SPDX-License-Identifier: Apache-2.0
#include "Outage.h"

#include "dlog.h"
#include "process/Owner.h"

namespace audio {

Outage::Outage() : mProblems(process::shared<status::Problems>()) {}

void Outage::began(const std::string& why) {
    const std::lock_guard lock(mMutex);
    if (!mOut.exchange(true)) {
        mSince = std::chrono::steady_clock::now();
    }
    if (mReasons.insert(why).second) {
        dlog_print(DLOG_WARN, "orvane-audio", "no sound to capture: %s", why.c_str());
    }
    mProblems.set(status::Problems::Part::Capture, why);
}

void Outage::end() {
    const std::lock_guard lock(mMutex);
    if (mOut.exchange(false)) {
        mReasons.clear();
        mProblems.set(status::Problems::Part::Capture, "");
        dlog_print(DLOG_INFO, "orvane-audio", "capturing sound again");
    }
}

std::chrono::milliseconds Outage::patience() const {
    using namespace std::chrono_literals;
    const std::lock_guard lock(mMutex);
    return mOut && std::chrono::steady_clock::now() - mSince > 2s ? 500ms : 100ms;
}

}  // namespace audio

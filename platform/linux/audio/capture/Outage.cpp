// SPDX-License-Identifier: Apache-2.0
#include "Outage.h"

#include "dlog.h"

namespace audio {

void Outage::began(const std::string& why) {
    const std::lock_guard lock(mMutex);
    if (!mOut.exchange(true)) {
        mSince = std::chrono::steady_clock::now();
        dlog_print(DLOG_WARN, "orvane-audio", "no sound to capture: %s", why.c_str());
    }
}

void Outage::end() {
    const std::lock_guard lock(mMutex);
    if (mOut.exchange(false)) {
        dlog_print(DLOG_INFO, "orvane-audio", "capturing sound again");
    }
}

std::chrono::milliseconds Outage::patience() const {
    using namespace std::chrono_literals;
    const std::lock_guard lock(mMutex);
    return mOut && std::chrono::steady_clock::now() - mSince > 2s ? 500ms : 100ms;
}

}  // namespace audio

// SPDX-License-Identifier: Apache-2.0
#include "Outage.h"

#include <utility>

#include "process/FaultLog.h"
#include "process/Owner.h"

namespace audio {

namespace {

constexpr char kTag[] = "orvane-audio";
constexpr char kOperation[] = "capture";
// How long capture must work before the log treats another failure as a new outage.
constexpr std::chrono::seconds kProof{10};

}  // namespace

Outage::Outage() : mProblems(process::shared<status::Problems>()) {}

void Outage::began(const std::string& why) {
    const std::lock_guard lock(mMutex);
    if (!mOut.exchange(true)) {
        mSince = std::chrono::steady_clock::now();
    }
    if (process::logFault(DLOG_WARN, kTag, kOperation, "no sound to capture: " + why)) {
        mLogged = true;
    }
    mProblems.set(status::Problems::Part::Capture, why);
}

void Outage::end() {
    const std::lock_guard lock(mMutex);
    if (mOut.exchange(false)) {
        process::faultEnded(kOperation, kProof);
        mProblems.set(status::Problems::Part::Capture, "");
        if (std::exchange(mLogged, false)) {
            dlog_print(DLOG_INFO, kTag, "capturing sound again");
        }
    }
}

std::chrono::milliseconds Outage::patience() const {
    using namespace std::chrono_literals;
    const std::lock_guard lock(mMutex);
    return mOut && std::chrono::steady_clock::now() - mSince > 2s ? 500ms : 100ms;
}

}  // namespace audio

// SPDX-License-Identifier: Apache-2.0
#include "audio/Registration.h"

#include "audio/SoundThread.h"
#include "process/Guard.h"

namespace audio {

void Registration::call(const std::function<void()>& callback) {
    {
        const std::lock_guard lock(mMutex);
        if (mEnded) {
            return;
        }
        mRunning = true;
    }
    process::contained("sound manager callback", callback);
    const std::lock_guard lock(mMutex);
    mRunning = false;
    mChanged.notify_all();
}

void Registration::end() {
    const bool fromACall = process::shared<SoundThread>().isCurrent();
    std::unique_lock lock(mMutex);
    mEnded = true;
    if (!fromACall) {
        mChanged.wait(lock, [this] { return !mRunning; });
    }
}

}  // namespace audio

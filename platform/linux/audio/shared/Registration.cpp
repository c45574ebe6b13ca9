// SPDX-License-Identifier: Apache-2.0
#include "audio/Registration.h"

#include "audio/SoundThread.h"

namespace audio {

void Registration::call(const std::function<void()>& callback) {
    {
        std::lock_guard lock(mMutex);
        if (mEnded) {
            return;
        }
        mRunning = true;
    }
    callback();
    std::lock_guard lock(mMutex);
    mRunning = false;
    mChanged.notify_all();
}

void Registration::end() {
    std::unique_lock lock(mMutex);
    mEnded = true;
    if (!SoundThread::get().isCurrent()) {
        mChanged.wait(lock, [this] { return !mRunning; });
    }
}

}  // namespace audio

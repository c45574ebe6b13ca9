// SPDX-License-Identifier: Apache-2.0
#include "audio/SoundThread.h"

#include <pthread.h>

#include "audio/SoundServer.h"
#include "process/Guard.h"

namespace audio {

SoundThread::SoundThread() {
    process::shared<SoundServer>();  // created first, so that it stops after this thread, whose work uses it
    mThread = std::thread([this] { run(); });
}

void SoundThread::post(std::function<void()> work) {
    const std::lock_guard lock(mMutex);
    if (!mStopping) {
        mWork.push_back(std::move(work));
        mChanged.notify_one();
    }
}

void SoundThread::stop() noexcept {
    {
        const std::lock_guard lock(mMutex);
        mStopping = true;
        mChanged.notify_one();
    }
    if (mThread.joinable()) {
        mThread.join();
    }
}

std::function<void()> SoundThread::next() {
    std::unique_lock lock(mMutex);
    mChanged.wait(lock, [this] { return mStopping || !mWork.empty(); });
    if (mStopping) {
        return nullptr;
    }
    std::function<void()> work = std::move(mWork.front());
    mWork.pop_front();
    return work;
}

void SoundThread::run() noexcept {
    pthread_setname_np(pthread_self(), "orvane-sound");
    while (const auto work = next()) {
        process::contained("sound thread", work);
    }
}

}  // namespace audio

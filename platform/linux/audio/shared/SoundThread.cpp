// SPDX-License-Identifier: Apache-2.0
#include "audio/SoundThread.h"

#include <pthread.h>

namespace audio {

SoundThread& SoundThread::get() {
    // Never destroyed: static objects of the product still call in while the process ends.
    static SoundThread* instance = new SoundThread;
    return *instance;
}

SoundThread::SoundThread() : mThread([this] { run(); }) {}

void SoundThread::post(std::function<void()> work) {
    std::lock_guard lock(mMutex);
    mWork.push_back(std::move(work));
    mChanged.notify_one();
}

void SoundThread::run() {
    pthread_setname_np(pthread_self(), "orvane-sound");
    for (;;) {
        std::function<void()> work;
        {
            std::unique_lock lock(mMutex);
            mChanged.wait(lock, [this] { return !mWork.empty(); });
            work = std::move(mWork.front());
            mWork.pop_front();
        }
        work();
    }
}

}  // namespace audio

// SPDX-License-Identifier: Apache-2.0
#include "audio/SoundEvents.h"

#include "bus/SessionBus.h"
#include "process/Guard.h"

namespace audio {

namespace {

constexpr unsigned kAgainMs = 2000;

}  // namespace

SoundEvents::SoundEvents()
    : mServer(process::shared<SoundServer>()),
      mVolume(process::shared<SoundThread>(), bus::ioThread()),
      mPlayback(process::shared<SoundThread>(), bus::ioThread()) {
    mServer.add(*this);
}

SoundEvents::~SoundEvents() {
    mServer.remove(*this);
}

SoundEvents::Watch::~Watch() {
    mIoThread.run([this] { *mAlive = false; });
}

void SoundEvents::Watch::set(Check check) {
    {
        const std::lock_guard lock(mMutex);
        mCheck = std::move(check);
    }
    soon();
}

void SoundEvents::Watch::soon() {
    if (!mPending.exchange(true)) {
        mThread.post([this] { run(); });
    }
}

void SoundEvents::Watch::run() {
    mPending = false;
    Check check;
    {
        const std::lock_guard lock(mMutex);
        check = mCheck;
    }
    if (check && !check()) {
        mIoThread.postAfter(kAgainMs, [this, alive = mAlive] {
            if (*alive) {
                soon();
            }
        });
    }
}

void SoundEvents::connected(pulse::Context& context) noexcept {
    process::contained("sound server watch", [&] {
        context.watch({[this] { mVolume.soon(); }, [this] { mPlayback.soon(); }});
        mVolume.soon();
        mPlayback.soon();
    });
}

void SoundEvents::lost() noexcept {
    process::contained("sound server watch", [this] { mPlayback.soon(); });
}

}  // namespace audio

// SPDX-License-Identifier: Apache-2.0
// The fades of VolumeController. One fader thread at a time changes the device's level. It does not take mMutex,
// because decreaseVolume and restoreVolume hold it while they wait for the previous fade.
#include <stdlib.h>
#include <unistd.h>

#include <exception>

#include "Util/Log.h"
#include "Util/Singleton.h"
#include "Util/Sound/SoundStreamWatcher.h"
#include "Util/Sound/VolumeController.h"

namespace Util {

namespace {

constexpr int DUCKED_LEVEL = 2;
constexpr int TICK_MS = 50;

}  // namespace

int VolumeController::decreaseVolume(double seconds) {
    std::lock_guard<std::mutex> lock(mMutex);
    if (mMediaType == MediaType::MEDIA && Singleton<SoundStreamWatcher>::getInstance()->isSoundStreamAvailable()) {
        return 0;
    }
    if (getRealVolume() <= DUCKED_LEVEL) {
        return 0;
    }
    implFaderThread(seconds, DUCKED_LEVEL, false);
    return 1;
}

int VolumeController::restoreVolume(double seconds) {
    std::lock_guard<std::mutex> lock(mMutex);
    implFaderThread(seconds, mVolume, true);
    return 1;
}

// Without a thread, the level changes at once instead of in steps.
void VolumeController::implFaderThread(double seconds, int target, bool restore) {
    stopFader();
    mFaderSet = true;
    try {
        mFaderThread = std::make_unique<std::thread>([=] { fade(seconds, target, restore); });
    } catch (const std::exception&) {
        LOGE("Failed to start a fade");
        fade(0, target, restore);
    }
}

// A running fade ends at its next tick but still sets its own target.
void VolumeController::stopFader() {
    if (mFaderThread == nullptr) {
        return;
    }
    mFaderSet = false;
    if (mFaderThread->joinable()) {
        mFaderThread->join();
    }
    mFaderThread.reset();
}

void VolumeController::fade(double seconds, int target, bool restore) {
    const int start = getRealVolume();
    mFading = true;
    // If the levels are equal, there are no steps, but the target is still set at the end.
    const int steps = abs(start - target);
    int remaining = steps == 0 ? 0 : static_cast<int>(seconds * 1000);
    int wait = 0;
    while (mFaderSet && remaining > 0) {
        if (wait < 1) {
            const int current = getRealVolume();
            const int next = current < target ? current + 1 : current - 1;
            // Another application may have set the target level in the meantime.
            if (next == target || current == target) {
                break;
            }
            setRealVolume(next);
            wait = remaining / steps;
            remaining -= wait;
        }
        wait -= TICK_MS;
        usleep(TICK_MS * 1000);
    }
    if (restore) {
        mFading = false;
    } else {
        endDecrease();
    }
    setRealVolume(target);
}

void VolumeController::endDecrease() {
    DecreaseCallback ended{nullptr, nullptr};
    {
        std::lock_guard<std::mutex> lock(mSyncMutex);
        if (mDecreaseCallback != nullptr) {
            ended = *mDecreaseCallback;
        }
    }
    if (ended.callback) {
        ended.callback(ended.userData);
    }
}

}  // namespace Util

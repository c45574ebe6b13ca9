// SPDX-License-Identifier: Apache-2.0
#include "Controller/SRecorderBackEnd.h"

#include <unistd.h>

#include "Controller/RecordingFocus.h"
#include "Util/Log.h"

namespace OrvaneDA {

namespace {

constexpr useconds_t PAUSE_US = 1000;

}  // namespace

void SRecorderBackEnd::shutDown() {
    ignoreFocusChanges();
    stopRecord();
    _audio_unprepare();
    _audio_deinit();
}

int SRecorderBackEnd::_audio_init() {
    LOGI("%s", mTexts.init);
    std::lock_guard<std::mutex> lock(mDeviceMutex);
    if (mState != NOT_INITIALIZED) {
        LOGE("Already initialized");
        return 0;
    }
    int result = 0;
    if (createDevice(result)) {
        mState = INITIALIZED;
    } else {
        LOGE("[SRecorder ERROR] Fail to create audio handle : %d", result);
    }
    return result;
}

int SRecorderBackEnd::_audio_prepare() {
    LOGI("%s", mTexts.prepare);
    std::lock_guard<std::mutex> lock(mDeviceMutex);
    if (mState == NOT_INITIALIZED) {
        LOGE("Init before prepare");
        return 0;
    }
    if (mState == PREPARED) {
        LOGE("Already prepared");
        return 0;
    }
    if (!holdsRecordingFocus(mStreamInfo) && acquireRecordingFocus(mStreamInfo) && bindStream() != 0) {
        LOGE("[Recorder ERROR] Fail to set stream info");
    }
    const int result = startDevice();
    if (result != 0) {
        LOGE("[Recorder ERROR] Fail to start audio : %d", result);
        return result;
    }
    mState = PREPARED;
    return result;
}

void SRecorderBackEnd::_audio_record(const StopFlag& stop) {
    LOGI("");
    char buffer[BUFFER_SIZE];
    while (!stop && isRecording()) {
        const std::unique_lock<std::mutex> turn = takeTurn();
        if (!turn) {
            usleep(PAUSE_US);
            continue;
        }
        const Read read = readDevice(buffer);
        if (read.error != 0) {
            LOGE("%s : %d", mTexts.readFailed, read.error);
            resetDevice();
        }
        if (read.bytes > 0) {
            deliver(buffer, read.bytes);
        } else {
            clearVolume();
            usleep(PAUSE_US);
        }
    }
    LOGI("_audio_record finish");
}

// Returns an unlocked lock if the device is not prepared or another read thread uses it. Does not wait for that thread,
// because a stop would then have to wait as well.
std::unique_lock<std::mutex> SRecorderBackEnd::takeTurn() {
    std::unique_lock<std::mutex> turn(mReadMutex, std::try_to_lock);
    if (turn && mState != PREPARED) {
        turn.unlock();
    }
    return turn;
}

void SRecorderBackEnd::resetDevice() {
    _audio_unprepare();
    _audio_deinit();
    _audio_init();
    _audio_prepare();
}

int SRecorderBackEnd::_audio_unprepare() {
    LOGI("%s", mTexts.unprepare);
    std::lock_guard<std::mutex> lock(mDeviceMutex);
    if (mState != PREPARED) {
        LOGE("Already unprepared");
        return 0;
    }
    const int result = stopDevice();
    if (result != 0) {
        LOGE("[Recorder ERROR] Fail to stop audio : %d", result);
    }
    if (holdsRecordingFocus(mStreamInfo)) {
        releaseRecordingFocus(mStreamInfo);
    }
    mState = INITIALIZED;
    return result;
}

int SRecorderBackEnd::_audio_deinit() {
    LOGI("%s", mTexts.deinit);
    std::lock_guard<std::mutex> lock(mDeviceMutex);
    if (mState == NOT_INITIALIZED) {
        LOGE("Already deinitialized");
        return 0;
    }
    if (mState == PREPARED) {
        LOGE("Unprepare before deinit");
        return 0;
    }
    const int result = destroyDevice();
    if (result != 0 && mTexts.destroyFailed != nullptr) {
        LOGE("%s: %d", mTexts.destroyFailed, result);
    }
    mState = NOT_INITIALIZED;
    return result;
}

}  // namespace OrvaneDA

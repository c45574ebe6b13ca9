// SPDX-License-Identifier: Apache-2.0
#include "Controller/SRecorderOriginal.h"

#include "Util/Log.h"

namespace OrvaneDA {

SRecorderOriginal::SRecorderOriginal() {
    LOGI("");
    _audio_init();
    _audio_prepare();
}

SRecorderOriginal::~SRecorderOriginal() {
    ignoreFocus();
    LOGI("");
    stopRecord();
    _audio_unprepare();
    _audio_deinit();
}

int SRecorderOriginal::_audio_init() {
    LOGI("audio_in_create");
    std::lock_guard<std::mutex> lock(mDeviceMutex);
    if (mState != NOT_INITIALIZED) {
        LOGE("Already initialized");
        return 0;
    }
    const int result = audio_in_create(mSampleRate, mChannel, mSampleType, &mInput);
    if (result != AUDIO_IO_ERROR_NONE) {
        LOGE("[SRecorder ERROR] Fail to create audio handle : %d", result);
        return result;
    }
    mState = INITIALIZED;
    return result;
}

int SRecorderOriginal::_audio_prepare() {
    LOGI("audio_in_prepare");
    std::lock_guard<std::mutex> lock(mDeviceMutex);
    if (mState == NOT_INITIALIZED) {
        LOGE("Init before prepare");
        return 0;
    }
    if (mState == PREPARED) {
        LOGE("Already prepared");
        return 0;
    }
    if (!holdsRecordingFocus() && acquireRecordingFocus() == SOUND_MANAGER_ERROR_NONE &&
        audio_in_set_sound_stream_info(mInput, mStreamInfo) != AUDIO_IO_ERROR_NONE) {
        LOGE("[Recorder ERROR] Fail to set stream info");
    }
    const int result = audio_in_prepare(mInput);
    if (result != AUDIO_IO_ERROR_NONE) {
        LOGE("[Recorder ERROR] Fail to start audio : %d", result);
        return result;
    }
    mState = PREPARED;
    return result;
}

void SRecorderOriginal::_audio_record() {
    LOGI("");
    char buffer[BUFFER_SIZE];
    while (isRecording()) {
        const std::unique_lock<std::mutex> turn = takeTurn();
        if (!turn) {
            continue;
        }
        const int count = audio_in_read(mInput, buffer, sizeof buffer);
        if (count > 0) {
            deliver(buffer, count);
        } else if (count == 0) {
            noData();
        } else {
            LOGE("audio_read fail : %d", count);
            resetDevice();
        }
    }
    LOGI("_audio_record finish");
}

int SRecorderOriginal::_audio_unprepare() {
    LOGI("audio_unprepare");
    std::lock_guard<std::mutex> lock(mDeviceMutex);
    if (mState != PREPARED) {
        LOGE("Already unprepared");
        return 0;
    }
    const int result = audio_in_unprepare(mInput);
    if (result != AUDIO_IO_ERROR_NONE) {
        LOGE("[Recorder ERROR] Fail to stop audio : %d", result);
    }
    if (holdsRecordingFocus()) {
        releaseRecordingFocus();
    }
    mState = INITIALIZED;
    return result;
}

int SRecorderOriginal::_audio_deinit() {
    LOGI("audio_in_destroy");
    std::lock_guard<std::mutex> lock(mDeviceMutex);
    if (mState == NOT_INITIALIZED) {
        LOGE("Already deinitialized");
        return 0;
    }
    if (mState == PREPARED) {
        LOGE("Unprepare before deinit");
        return 0;
    }
    const int result = audio_in_destroy(mInput);
    if (result != AUDIO_IO_ERROR_NONE) {
        LOGE("[Recorder ERROR] Fail to destroy audio handle: %d", result);
    }
    mState = NOT_INITIALIZED;
    return result;
}

}  // namespace OrvaneDA

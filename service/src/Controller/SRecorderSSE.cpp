// SPDX-License-Identifier: Apache-2.0
#include "Controller/SRecorderSSE.h"

#include <speech_capture.h>

#include "Util/Log.h"

namespace OrvaneDA {

namespace {

constexpr int FRAMES = 256;             // of one read
constexpr int BLOCK_SIZE = FRAMES * 2;  // bytes: the library folds its two channels into one

}  // namespace

SRecorderSSE::SRecorderSSE() {
    LOGI("");
    _audio_init();
    _audio_prepare();
}

SRecorderSSE::~SRecorderSSE() {
    ignoreFocus();
    LOGI("");
    stopRecord();
    _audio_unprepare();
    _audio_deinit();
}

int SRecorderSSE::_audio_init() {
    LOGI("");
    std::lock_guard<std::mutex> lock(mDeviceMutex);
    if (mState != NOT_INITIALIZED) {
        LOGE("Already initialized");
        return 0;
    }
    const int created = sse_create(16000, AUDIO_CHANNEL_STEREO, AUDIO_SAMPLE_TYPE_S16_LE, FRAMES);
    const int initialized = sse_init();
    mState = INITIALIZED;
    return created != 0 ? created : initialized;
}

int SRecorderSSE::_audio_prepare() {
    LOGI("");
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
        sse_set_stream_info(mStreamInfo) != 0) {
        LOGE("[Recorder ERROR] Fail to set stream info");
    }
    const int result = sse_prepare();
    if (result != 0) {
        LOGE("[Recorder ERROR] Fail to start audio : %d", result);
        return result;
    }
    mState = PREPARED;
    return result;
}

void SRecorderSSE::_audio_record() {
    LOGI("");
    char buffer[BUFFER_SIZE];
    while (isRecording()) {
        const std::unique_lock<std::mutex> turn = takeTurn();
        if (!turn) {
            continue;
        }
        const int result = sse_read(buffer, FRAMES);
        if (result == 0) {
            deliver(buffer, BLOCK_SIZE);
        } else {
            LOGE("sse_read fail : %d", result);
            resetDevice();
        }
    }
    LOGI("_audio_record finish");
}

int SRecorderSSE::_audio_unprepare() {
    LOGI("");
    std::lock_guard<std::mutex> lock(mDeviceMutex);
    if (mState != PREPARED) {
        LOGE("Already unprepared");
        return 0;
    }
    const int result = sse_unprepare();
    if (result != 0) {
        LOGE("[Recorder ERROR] Fail to stop audio : %d", result);
    }
    if (holdsRecordingFocus()) {
        releaseRecordingFocus();
    }
    mState = INITIALIZED;
    return result;
}

int SRecorderSSE::_audio_deinit() {
    LOGI("");
    std::lock_guard<std::mutex> lock(mDeviceMutex);
    if (mState == NOT_INITIALIZED) {
        LOGE("Already deinitialized");
        return 0;
    }
    if (mState == PREPARED) {
        LOGE("Unprepare before deinit");
        return 0;
    }
    const int deinitialized = sse_deinit();
    const int destroyed = sse_destroy();
    mState = NOT_INITIALIZED;
    return deinitialized != 0 ? deinitialized : destroyed;
}

void SRecorderSSE::debugTriggerShot(int level) {
    sse_trigger_wakeup_word_recording(level);
}

}  // namespace OrvaneDA

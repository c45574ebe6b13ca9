#include "Controller/SRecorder.h"

#include <math.h>
#include <string.h>
#include <unistd.h>

#include "Util/Log.h"

namespace OrvaneDA {

namespace {

constexpr useconds_t PAUSE_US = 1000;

// Square of the little-endian sample at the start of `bytes` bytes, 4 at most.
inline long long squareAt(const char* data, size_t bytes) {
    uint32_t word = 0;
    memcpy(&word, data, bytes);
    const int sample = static_cast<int16_t>(word);
    return sample * sample;
}

}  // namespace

SRecorder::SRecorder() {
    LOGI("");
    int result =
        sound_manager_create_stream_information(SOUND_STREAM_TYPE_VOICE_RECOGNITION, focusCallback, this, &mStreamInfo);
    if (result != SOUND_MANAGER_ERROR_NONE) {
        LOGE("[ERROR] Fail to create stream information : %d", result);
    }
    result = sound_manager_set_focus_reacquisition(mStreamInfo, true);
    if (result != SOUND_MANAGER_ERROR_NONE) {
        LOGE("[ERROR] Fail to set focus reacquisition : %d", result);
    }
}

SRecorder::~SRecorder() {
    LOGI("");
    const int result = sound_manager_destroy_stream_information(mStreamInfo);
    if (result != SOUND_MANAGER_ERROR_NONE) {
        LOGE("[ERROR] Fail to destroy stream information : %d", result);
    }
    mStreamInfo = nullptr;
}

void SRecorder::addListener(SRecordListener* listener) {
    std::lock_guard<std::mutex> lock(mListenerMutex);
    mListeners.push_back(listener);
}

void SRecorder::clearListener() {
    std::lock_guard<std::mutex> lock(mListenerMutex);
    mListeners.clear();
}

void SRecorder::startRecord() {
    LOGI("");
    if (mRecording) {
        return;
    }
    std::lock_guard<std::mutex> lock(mThreadMutex);
    if (mReadThread != nullptr) {
        mReplacedThreads.push_back(std::move(mReadThread));
    }
    mReadThread = std::make_unique<ReadThread>();
    mReadThread->cancelled = std::make_shared<std::atomic<bool>>(false);
    mReadThread->thread = std::thread([this, cancelled = mReadThread->cancelled] { readThread(*cancelled); });
}

void SRecorder::stopRecord() {
    LOGI("");
    std::vector<std::unique_ptr<ReadThread>> leaving;
    {
        std::lock_guard<std::mutex> lock(mThreadMutex);
        leaving.swap(mReplacedThreads);
        if (mReadThread != nullptr) {
            leaving.push_back(std::move(mReadThread));
        }
        for (auto& thread : leaving) {
            *thread->cancelled = true;
        }
        mRecording = false;
    }
    for (auto& thread : leaving) {
        thread->thread.join();
    }
}

void SRecorder::readThread(const std::atomic<bool>& cancelled) {
    LOGI("Read Thread Start");
    {
        // A stop that came before this thread ran must not be undone.
        std::lock_guard<std::mutex> lock(mThreadMutex);
        if (!cancelled) {
            mRecording = true;
        }
    }
    _audio_record();
    mRecording = false;
}

bool SRecorder::waitUntilPrepared() {
    if (mState == PREPARED) {
        return true;
    }
    usleep(PAUSE_US);
    return false;
}

void SRecorder::noData() {
    mVolume = NO_VOLUME;
    usleep(PAUSE_US);
}

void SRecorder::resetDevice() {
    _audio_unprepare();
    _audio_deinit();
    _audio_init();
    _audio_prepare();
    noData();
}

void SRecorder::deliver(char* buffer, int size) {
    mVolume = _get_volume_decibel(buffer, size);
    std::lock_guard<std::mutex> lock(mListenerMutex);
    for (SRecordListener* listener : mListeners) {
        if (listener != nullptr && listener->isEnabled()) {
            char* copy = new char[size];
            memcpy(copy, buffer, size);
            listener->onDataHandled(copy, size);
        }
    }
}

float SRecorder::_get_volume_decibel(char* data, int size) {
    const int samples = size < 1 ? 0 : (size - 1) / 4 + 1;
    long long sum = 0;
    // All but the last sample have the skipped one behind them: whole words, of which the compiler takes several at
    // once.
    for (int i = 0; i < samples - 1; ++i) {
        sum += squareAt(data + i * 4, 4);
    }
    if (samples > 0) {
        const int last = (samples - 1) * 4;
        sum += squareAt(data + last, size - last < 4 ? size - last : 4);
    }
    const float mean = samples == 0 ? 0.0f : static_cast<float>(sum) / static_cast<float>(samples);
    const float rms = sqrtf(mean);
    return static_cast<float>(20.0 * log10(rms * 3.0517578e-5));
}

bool SRecorder::holdsRecordingFocus() {
    sound_stream_focus_state_e recording = SOUND_STREAM_FOCUS_STATE_RELEASED;
    const int result = sound_manager_get_focus_state(mStreamInfo, nullptr, &recording);
    if (result != SOUND_MANAGER_ERROR_NONE) {
        LOGE("[Recorder ERROR] Fail to get focus state : %d", result);
    }
    return recording == SOUND_STREAM_FOCUS_STATE_ACQUIRED;
}

int SRecorder::acquireRecordingFocus() {
    const int result =
        sound_manager_acquire_focus(mStreamInfo, SOUND_STREAM_FOCUS_FOR_RECORDING, SOUND_BEHAVIOR_NONE, nullptr);
    if (result != SOUND_MANAGER_ERROR_NONE) {
        LOGE("[Recorder ERROR] Fail to acquire focus : %d", result);
    }
    return result;
}

int SRecorder::releaseRecordingFocus() {
    const int result =
        sound_manager_release_focus(mStreamInfo, SOUND_STREAM_FOCUS_FOR_RECORDING, SOUND_BEHAVIOR_NONE, nullptr);
    if (result != SOUND_MANAGER_ERROR_NONE) {
        LOGE("[Recorder ERROR] Fail to release focus :%d", result);
    }
    return result;
}

void SRecorder::ignoreFocus() {
    std::lock_guard<std::mutex> lock(mFocusMutex);
    mIgnoreFocus = true;
}

void SRecorder::focusCallback(sound_stream_info_h streamInfo, sound_stream_focus_mask_e mask,
                              sound_stream_focus_state_e state, sound_stream_focus_change_reason_e reason, int,
                              const char*, void* data) {
    auto* recorder = static_cast<SRecorder*>(data);
    std::lock_guard<std::mutex> lock(recorder->mFocusMutex);
    if (recorder->mIgnoreFocus) {
        return;
    }
    if (streamInfo != recorder->mStreamInfo) {
        LOGE("Invalid stream info handle");
        return;
    }
    LOGD("Sound Stream Focus State Chagned!");
    LOGD("Focus state changed to (%d) with reason(%s)", state, TranslateSoundStreamFocusChangeReason(reason));
    recorder->focusChanged(mask, state);
}

void SRecorder::focusChanged(sound_stream_focus_mask_e mask, sound_stream_focus_state_e state) {
    if (mask != SOUND_STREAM_FOCUS_FOR_RECORDING) {
        return;
    }
    if (mState == PREPARED && state == SOUND_STREAM_FOCUS_STATE_RELEASED) {
        LOGD("Focus released as interrupt");
        stopRecord();
        _audio_unprepare();
    } else if (mState == INITIALIZED && state == SOUND_STREAM_FOCUS_STATE_ACQUIRED) {
        LOGD("Focus acquired as interrupt completed");
        _audio_prepare();
        startRecord();
    }
}

const char* SRecorder::TranslateSoundStreamFocusChangeReason(sound_stream_focus_change_reason_e reason) {
    static constexpr const char* NAMES[] = {"SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA",
                                            "SOUND_STREAM_FOCUS_CHANGED_BY_SYSTEM",
                                            "SOUND_STREAM_FOCUS_CHANGED_BY_ALARM",
                                            "SOUND_STREAM_FOCUS_CHANGED_BY_NOTIFICATION",
                                            "SOUND_STREAM_FOCUS_CHANGED_BY_EMERGENCY",
                                            "SOUND_STREAM_FOCUS_CHANGED_BY_VOICE_INFORMATION",
                                            "SOUND_STREAM_FOCUS_CHANGED_BY_VOICE_RECOGNITION",
                                            "SOUND_STREAM_FOCUS_CHANGED_BY_RINGTONE",
                                            "SOUND_STREAM_FOCUS_CHANGED_BY_VOIP",
                                            "SOUND_STREAM_FOCUS_CHANGED_BY_CALL",
                                            "SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA_EXTERNAL_ONLY"};
    const auto index = static_cast<size_t>(reason);
    return index < std::size(NAMES) ? NAMES[index] : "Undefined reason code";
}

}  // namespace OrvaneDA

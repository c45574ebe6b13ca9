// SPDX-License-Identifier: Apache-2.0
#include "Controller/SRecorder.h"

#include <math.h>
#include <string.h>
#include <unistd.h>

#include "Util/Log.h"

namespace OrvaneDA {

namespace {

// Of the read thread that asks. A start may set the recording flag again while a stop still waits for its thread.
thread_local const std::atomic<bool>* ownCancelled = nullptr;

constexpr useconds_t PAUSE_US = 1000;
constexpr int WORD = 4;  // bytes: one sample that counts for the level and one that does not

// Square of the little-endian sample in the lower half of a word.
inline uint32_t squareOf(uint32_t word) {
    const int sample = static_cast<int16_t>(word);
    return static_cast<uint32_t>(sample * sample);
}

inline uint32_t wordAt(const char* data) {
    uint32_t word;
    memcpy(&word, data, sizeof word);
    return word;
}

// size at least 1. Two squares fit 32 bits without a sign, so only half as many are widened; taking them from far apart
// lets the compiler load whole registers.
int64_t sumOfSquares(const char* data, int size) {
    const int words = size / WORD;
    const int half = words / 2;
    const char* other = data + half * WORD;
    int64_t sum = 0;
    for (int i = 0; i < half; ++i) {
        sum += squareOf(wordAt(data + i * WORD)) + squareOf(wordAt(other + i * WORD));
    }
    if (words % 2 != 0) {
        sum += squareOf(wordAt(data + (words - 1) * WORD));
    }
    if (size % WORD != 0) {
        uint32_t last = 0;
        memcpy(&last, data + words * WORD, size % WORD);
        sum += squareOf(last);
    }
    return sum;
}

}  // namespace

SRecorder::SRecorder() {
    LOGI("");
    int result = sound_manager_create_stream_information(SOUND_STREAM_TYPE_VOICE_RECOGNITION, _focus_state_changed_cb,
                                                         this, &mStreamInfo);
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
    auto next = std::make_unique<ReadThread>();
    next->cancelled = std::make_shared<std::atomic<bool>>(false);
    next->thread = std::thread([this, cancelled = next->cancelled] { readThread(*cancelled); });
    mReadThread = std::move(next);
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
    ownCancelled = &cancelled;
    {
        // A stop that came before this thread ran must not be undone.
        std::lock_guard<std::mutex> lock(mThreadMutex);
        if (!cancelled) {
            mRecording = true;
        }
    }
    _audio_record();
    std::lock_guard<std::mutex> lock(mThreadMutex);
    if (!cancelled) {
        mRecording = false;
    }
}

bool SRecorder::isRecording() const {
    return mRecording && (ownCancelled == nullptr || !*ownCancelled);
}

std::unique_lock<std::mutex> SRecorder::takeTurn() {
    std::unique_lock<std::mutex> turn(mReadMutex, std::try_to_lock);
    if (turn && mState == PREPARED) {
        return turn;
    }
    usleep(PAUSE_US);
    return {};
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
    mVolume.store(_get_volume_decibel(buffer, size), std::memory_order_relaxed);
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
    float mean = 0;
    if (size > 0) {
        const int samples = (size - 1) / WORD + 1;
        mean = static_cast<float>(sumOfSquares(data, size)) / static_cast<float>(samples);
    }
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

void SRecorder::_focus_state_changed_cb(sound_stream_info_h streamInfo, sound_stream_focus_mask_e mask,
                                        sound_stream_focus_state_e state, sound_stream_focus_change_reason_e reason,
                                        int, const char*, void* data) noexcept {
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

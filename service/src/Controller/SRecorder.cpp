// SPDX-License-Identifier: Apache-2.0
#include "Controller/SRecorder.h"

#include <string.h>

#include <exception>

#include "Util/Log.h"

namespace OrvaneDA {

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
    auto next = std::make_unique<ReadThread>();
    try {
        next->thread = std::thread([this, &stop = next->stop] { read(stop); });
    } catch (const std::exception&) {
        LOGE("Failed to start the read thread");
        return;
    }
    mReadThreads.push_back(std::move(next));
}

void SRecorder::stopRecord() {
    LOGI("");
    std::vector<std::unique_ptr<ReadThread>> stopped;
    {
        std::lock_guard<std::mutex> lock(mThreadMutex);
        stopped.swap(mReadThreads);
        for (auto& reader : stopped) {
            reader->stop = true;
        }
        mRecording = false;
    }
    for (auto& reader : stopped) {
        reader->thread.join();
    }
}

// A stopped thread does not change the recording flag, which may already belong to the next thread.
void SRecorder::read(const StopFlag& stop) {
    LOGI("Read Thread Start");
    {
        std::lock_guard<std::mutex> lock(mThreadMutex);
        if (!stop) {
            mRecording = true;
        }
    }
    _audio_record(stop);
    std::lock_guard<std::mutex> lock(mThreadMutex);
    if (!stop) {
        mRecording = false;
    }
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

}  // namespace OrvaneDA

// SPDX-License-Identifier: Apache-2.0
// The microphone recorder. Reads blocks of 16 kHz mono S16 samples on a read thread, measures the level of each block,
// and passes a separate copy to every enabled listener. A back end implements the device operations.
//
// Threads: the owner constructs, starts, and destroys. The read thread reads, resets the device, and calls the
// listeners. The sound manager's thread reports focus changes, which stop and resume the capture.
#pragma once

#include <audio_io.h>
#include <sound_manager.h>

#include <atomic>
#include <list>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "Controller/SRecordListener.h"

namespace OrvaneDA {

class SRecorder {
public:
    // Setting this flag ends the read thread that owns it.
    using StopFlag = std::atomic<bool>;

    SRecorder();
    virtual ~SRecorder();
    SRecorder(const SRecorder&) = delete;
    SRecorder& operator=(const SRecorder&) = delete;

    // Device operations. They return 0 or the platform's code and log their own failures.
    virtual int _audio_init() = 0;
    virtual int _audio_prepare() = 0;
    // Runs on a read thread until `stop` is set or the recording flag is cleared.
    virtual void _audio_record(const StopFlag& stop) = 0;
    virtual int _audio_unprepare() = 0;
    virtual int _audio_deinit() = 0;

    // Any thread, but never from within a listener. The caller keeps ownership of the listeners.
    void addListener(SRecordListener* listener);
    void clearListener();

    // If the thread cannot be created, logs the failure; a later call tries again.
    void startRecord();
    // Waits until the current read returns. Not from the read thread.
    void stopRecord();

    // The level of the last block in dB of full scale; -60 after an empty or failed read. Any thread.
    float getVolume() const { return mVolume; }
    // `size` is in bytes. Uses only every second sample.
    static float _get_volume_decibel(char* data, int size);
    static const char* TranslateSoundStreamFocusChangeReason(sound_stream_focus_change_reason_e reason);

protected:
    enum State { NOT_INITIALIZED = -1, INITIALIZED = 0, PREPARED = 1 };

    bool isRecording() const { return mRecording; }
    // For the capture loop; read thread only. Passes a block of `size` bytes to the listeners.
    void deliver(char* buffer, int size);
    void clearVolume() { mVolume = NO_VOLUME; }
    // Waits for a focus change in progress and ignores all later ones.
    void ignoreFocusChanges();

    const int mSampleRate = 16000;  // Hz
    const audio_channel_e mChannel = AUDIO_CHANNEL_MONO;
    const audio_sample_type_e mSampleType = AUDIO_SAMPLE_TYPE_S16_LE;
    sound_stream_info_h mStreamInfo = nullptr;
    std::atomic<int> mState{NOT_INITIALIZED};

private:
    struct ReadThread {
        StopFlag stop{false};
        std::thread thread;
    };

    void read(const StopFlag& stop);
    static void _focus_state_changed_cb(sound_stream_info_h streamInfo, sound_stream_focus_mask_e mask,
                                        sound_stream_focus_state_e state, sound_stream_focus_change_reason_e reason,
                                        int soundBehavior, const char* extraInfo, void* recorder) noexcept;

    static constexpr float NO_VOLUME = -60.0f;

    std::mutex mThreadMutex;  // guards mReadThreads and every change of mRecording
    // Has more than one thread if two starts came before the first thread recorded, or if a thread ended on its own.
    std::vector<std::unique_ptr<ReadThread>> mReadThreads;
    std::atomic<bool> mRecording{false};
    std::mutex mListenerMutex;
    std::list<SRecordListener*> mListeners;
    std::atomic<float> mVolume{NO_VOLUME};
    std::mutex mFocusMutex;  // held while a focus change is handled
    bool mIgnoreFocusChanges = false;
};

}  // namespace OrvaneDA

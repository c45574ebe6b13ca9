// SPDX-License-Identifier: Apache-2.0
// The microphone recorder: holds the recording focus, reads 16 kHz mono S16 blocks on a read thread, measures each
// block's level and hands every enabled listener a copy of its own. A back end fills in the device operations.
//
// Threads: the owner constructs, starts and destroys; the read thread reads, resets the device and calls the listeners;
// the sound manager's thread reports focus changes, which stop and resume capture.
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
    SRecorder();
    virtual ~SRecorder();
    SRecorder(const SRecorder&) = delete;
    SRecorder& operator=(const SRecorder&) = delete;

    // Device operations: 0 or the platform's code; each logs its own failures.
    virtual int _audio_init() = 0;
    virtual int _audio_prepare() = 0;
    virtual void _audio_record() = 0;  // on the read thread, until the recording flag is cleared
    virtual int _audio_unprepare() = 0;
    virtual int _audio_deinit() = 0;

    // Any thread, but not from a listener. Listeners stay the caller's.
    void addListener(SRecordListener* listener);
    void clearListener();

    void startRecord();
    // Waits for the read in hand. Not from the read thread.
    void stopRecord();

    // Level of the last block in dB of full scale; -60 after an empty or failed read. Any thread.
    float getVolume() const { return mVolume; }
    // size in bytes; every second sample counts, which is enough for a meter.
    static float _get_volume_decibel(char* data, int size);
    static const char* TranslateSoundStreamFocusChangeReason(sound_stream_focus_change_reason_e reason);

protected:
    enum State { NOT_INITIALIZED = -1, INITIALIZED = 0, PREPARED = 1 };

    static constexpr int BUFFER_SIZE = 1024;  // bytes
    static constexpr float NO_VOLUME = -60.0f;

    // For the back ends' capture loops, on the read thread.
    bool isRecording() const;
    // To be held for a read with its reset. Not held after one pause, in which the device was not prepared or another
    // read thread was at it.
    std::unique_lock<std::mutex> takeTurn();
    void deliver(char* buffer, int size);
    void noData();
    void resetDevice();

    // For _audio_prepare and _audio_unprepare.
    bool holdsRecordingFocus();
    int acquireRecordingFocus();
    int releaseRecordingFocus();
    // Focus changes are ignored from now on; returns when none is being handled. First act of a back end's destructor.
    void ignoreFocus();

    const int mSampleRate = 16000;  // Hz
    const audio_channel_e mChannel = AUDIO_CHANNEL_MONO;
    const audio_sample_type_e mSampleType = AUDIO_SAMPLE_TYPE_S16_LE;
    sound_stream_info_h mStreamInfo = nullptr;
    std::atomic<int> mState{NOT_INITIALIZED};
    std::mutex mDeviceMutex;  // one device operation at a time: the read thread resets while the focus may change
    std::mutex mReadMutex;    // one read, with its reset, at a time: two starts close together make two read threads

private:
    struct ReadThread {
        std::thread thread;
        std::shared_ptr<std::atomic<bool>> cancelled;
    };

    void readThread(const std::atomic<bool>& cancelled);
    void focusChanged(sound_stream_focus_mask_e mask, sound_stream_focus_state_e state);
    static void _focus_state_changed_cb(sound_stream_info_h streamInfo, sound_stream_focus_mask_e mask,
                                        sound_stream_focus_state_e state, sound_stream_focus_change_reason_e reason,
                                        int soundBehavior, const char* extraInfo, void* recorder) noexcept;

    std::atomic<bool> mRecording{false};
    std::atomic<float> mVolume{NO_VOLUME};
    std::mutex mThreadMutex;  // guards the two below
    std::unique_ptr<ReadThread> mReadThread;
    // Threads that a later start replaced; they end with the recording flag and are joined with the current one.
    std::vector<std::unique_ptr<ReadThread>> mReplacedThreads;
    std::mutex mListenerMutex;
    std::list<SRecordListener*> mListeners;
    std::mutex mFocusMutex;  // held while a focus change is handled
    bool mIgnoreFocus = false;
};

}  // namespace OrvaneDA

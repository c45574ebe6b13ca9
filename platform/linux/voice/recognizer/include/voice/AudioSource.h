// SPDX-License-Identifier: Apache-2.0
// The microphone for one utterance. It uses the platform's own audio input, so that a replayed recording also reaches
// the recognizer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <mutex>

#include "audio_io.h"

namespace voice {

class AudioSource {
public:
    AudioSource() = default;
    ~AudioSource();
    AudioSource(const AudioSource&) = delete;
    AudioSource& operator=(const AudioSource&) = delete;

    // Starts capture: 16 kHz, one channel. Blocks while it connects to the sound server. False if no input is
    // available.
    bool open();
    // Blocks until samples arrive. Returns their number; 0 after a failure or an interruption.
    std::size_t read(int16_t* samples, std::size_t most);
    // Stops capture and interrupts a read in progress. Any thread.
    void interrupt();

private:
    std::mutex mMutex;  // guards start and stop
    audio_in_h mInput = nullptr;
    bool mCapturing = false;
    bool mInterrupted = false;
};

}  // namespace voice

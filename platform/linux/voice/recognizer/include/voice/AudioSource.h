// SPDX-License-Identifier: Apache-2.0
// The microphone for one utterance, through the platform's own audio input, so that the recognizer hears what every
// other listener hears, a replayed recording included.
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

    // Starts capture: 16 kHz, one channel. May block while the sound server is reached. False when there is no sound.
    bool open();
    // Blocks for sound. The number of samples; 0 when it has failed or was interrupted.
    std::size_t read(int16_t* samples, std::size_t most);
    // Ends capture and a read in progress. Any thread.
    void interrupt();

private:
    std::mutex mMutex;  // of starting and ending
    audio_in_h mInput = nullptr;
    bool mCapturing = false;
    bool mInterrupted = false;
};

}  // namespace voice

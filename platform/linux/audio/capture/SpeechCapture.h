// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

#include "Capture.h"

namespace audio {

// Captures speech and mixes the source's channels into one. If ORVANE_WAKEUP_RECORDINGS is set, it also keeps the last
// two seconds, to write them to a file after a wake-word detection.
class SpeechCapture {
public:
    SpeechCapture(const Format& format, int frames);

    Capture& device() { return mCapture; }
    // Fills `frames` samples. One reader at a time. Returns audio_io_error_e.
    int read(int16_t* out, int frames);
    // Any thread. Writes the file on the sound thread.
    void keepWakeup(int level);

private:
    void remember(const int16_t* samples, std::size_t count);

    Capture mCapture;
    const int mMost;
    std::vector<int16_t> mBlock;
    std::mutex mMutex;
    std::vector<int16_t> mLast;  // a ring buffer; empty if ORVANE_WAKEUP_RECORDINGS is not set
    std::size_t mNext = 0;
};

}  // namespace audio

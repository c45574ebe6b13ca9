// SPDX-License-Identifier: Apache-2.0
// What both capture interfaces share: a source that is there while capture is prepared. Any thread may prepare and
// unprepare while another one reads.
#pragma once

#include <memory>
#include <mutex>

#include "CaptureSource.h"

namespace audio {

// All return audio_io_error_e.
class Capture {
public:
    explicit Capture(const Format& format) : mFormat(format) {}

    const Format& format() const { return mFormat; }
    // Does not wait for the sound server; what fails later fails the reads.
    int prepare();
    // Ends a read in progress.
    int unprepare();
    // Blocks until all the frames have come.
    int read(int16_t* samples, std::size_t frames);

private:
    const Format mFormat;
    std::mutex mMutex;
    std::shared_ptr<CaptureSource> mSource;
};

// AUDIO_IO_ERROR_NONE when the platform captures such sound. `channel` and `type` are audio_channel_e and
// audio_sample_type_e.
int checkFormat(int rate, int channel, int type);

}  // namespace audio

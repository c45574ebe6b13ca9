// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <mutex>

#include "CaptureSource.h"
#include "process/Owner.h"
#include "status/Supervisor.h"

namespace audio {

// The capture stream behind both capture interfaces. It has a source between prepare() and unprepare(). Any thread may
// call these while another thread reads.
class Capture {
public:
    explicit Capture(const Format& format) : mFormat(format) {}

    const Format& format() const { return mFormat; }
    // All functions return audio_io_error_e. prepare() throws std::runtime_error if the source cannot be opened. It
    // does not wait for the sound server; without a server, reads fail.
    int prepare();
    // Ends a read in progress.
    int unprepare();
    // Blocks until it has read all frames.
    int read(int16_t* samples, std::size_t frames);

private:
    status::Supervisor& mSupervisor = process::shared<status::Supervisor>();
    const Format mFormat;
    std::mutex mMutex;
    std::shared_ptr<CaptureSource> mSource;
};

// AUDIO_IO_ERROR_NONE if the platform can capture this format. `channel` and `type` are audio_channel_e and
// audio_sample_type_e.
int checkFormat(int rate, int channel, int type);

}  // namespace audio

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>

#include "CaptureSource.h"
#include "Recording.h"
#include "ReplayClock.h"

namespace audio {

// Replaces the microphone with a recording. All work happens on the reader's thread.
//
// ORVANE_AUDIO_REPLAY names the file, which may have any rate and number of channels. ORVANE_AUDIO_REPLAY_PACE is
// "realtime" (the default) or "fast" (as fast as the reader reads). After the end of the file, the source delivers the
// noise of a quiet room, in real time and without end.
class ReplaySource : public CaptureSource {
public:
    // Throws std::runtime_error with the reason in one line.
    explicit ReplaySource(const Format& format);

    bool read(int16_t* samples, std::size_t frames) override;
    void interrupt() noexcept override;

private:
    using Clock = std::chrono::steady_clock;

    void addQuiet(int16_t* samples, std::size_t frames);
    bool waitUntilDue();
    double seconds(int64_t frames) const { return static_cast<double>(frames) / mFormat.rate; }

    const Format mFormat;
    const bool mFast;
    std::unique_ptr<Recording> mRecording;  // null after the end
    std::shared_ptr<ReplayClock> mClock;
    double mBegan = 0;         // the position in the recording where this capture began, in seconds
    int64_t mRead = 0;         // frames since then
    Clock::time_point mStart;  // when the first of them was due
    uint32_t mNoise = 0x2545F491;

    std::mutex mMutex;
    std::condition_variable mChanged;
    bool mInterrupted = false;
};

}  // namespace audio

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace audio {

// The position of a replayed recording in this process. All capture streams share it, as they would share a microphone:
// a stream that opens later or reopens does not start at the beginning of the recording. Any thread.
class ReplayClock {
public:
    // The clock of this recording. It keeps running without capture streams.
    static std::shared_ptr<ReplayClock> of(const std::string& path);

    // Seconds since the first call: the position of a real-time capture.
    double elapsed();
    // The furthest position that any capture has reached in fast mode.
    double furthest();
    void reached(double seconds);

private:
    std::mutex mMutex;
    std::optional<std::chrono::steady_clock::time_point> mStart;
    double mFurthest = 0;
};

}  // namespace audio

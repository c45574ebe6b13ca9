// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace audio {

// How far the replay of a recording has come in this process. All captures share it, as they would share a microphone:
// one that opens later, or again, does not start at the recording's beginning. Any thread.
class ReplayClock {
public:
    // The clock of this recording. It runs on without captures.
    static std::shared_ptr<ReplayClock> of(const std::string& path);

    // Seconds since the first call: the position of a capture in real time.
    double elapsed();
    // The position of the foremost capture that reads as fast as it can.
    double furthest();
    void reached(double seconds);

private:
    std::mutex mMutex;
    std::optional<std::chrono::steady_clock::time_point> mStart;
    double mFurthest = 0;
};

}  // namespace audio

// SPDX-License-Identifier: Apache-2.0
// How far the replayed recording has been heard in this process. All who listen hear one and the same room: who opens
// the microphone later, or again, does not hear the recording from its start.
#pragma once

#include <chrono>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace audio {

class ReplayClock {
public:
    // The recording's own; it runs on while nobody listens. Any thread.
    static std::shared_ptr<ReplayClock> of(const std::string& path);

    // Seconds since the first call of all: where a listener in real time stands.
    double elapsed();
    // How far the foremost of those who listen as fast as they can has come.
    double furthest();
    void reached(double seconds);

private:
    std::mutex mMutex;
    std::optional<std::chrono::steady_clock::time_point> mStart;
    double mFurthest = 0;
};

}  // namespace audio

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <vector>

namespace audio {

// Passes captured bytes from the sound server's thread to the reader. The reader wakes only when all the bytes it waits
// for have arrived. A full queue drops the oldest bytes.
class SampleQueue {
public:
    enum class Taken { All, TimedOut, Ended };

    explicit SampleQueue(std::size_t capacity) : mRing(capacity) {}

    // Null data means silence. Never waits for the reader.
    void push(const char* data, std::size_t bytes);
    // Waits for `bytes` (at most the capacity) and takes them all, or takes nothing if the wait fails.
    Taken take(char* out, std::size_t bytes, std::chrono::milliseconds limit);
    // Drops the queued bytes. The take() in progress, or otherwise the next one, returns Ended. Later ones wait for new
    // bytes.
    void breakOff();
    // Forgets a breakOff() that no take() has returned yet.
    void resume();
    // Makes the take() in progress and all later ones return Ended.
    void end();

private:
    void write(const char* data, std::size_t bytes);

    std::mutex mMutex;
    std::condition_variable mEnough;
    std::vector<char> mRing;
    std::size_t mFirst = 0;
    std::size_t mCount = 0;
    std::size_t mWanted = 0;
    bool mBroken = false;
    bool mEnded = false;
};

}  // namespace audio

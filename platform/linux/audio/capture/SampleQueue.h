// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <vector>

namespace audio {

// Passes captured bytes from the sound server's thread to the reader, which wakes up once, when all the bytes that it
// waits for have come. What is not read in time is dropped, the oldest bytes first.
class SampleQueue {
public:
    enum class Taken { All, TimedOut, Ended };

    explicit SampleQueue(std::size_t capacity) : mRing(capacity) {}

    // Null data stands for silence. Never blocks on the reader.
    void push(const char* data, std::size_t bytes);
    // Waits for `bytes` (at most the capacity) and takes them; nothing is taken otherwise.
    Taken take(char* out, std::size_t bytes, std::chrono::milliseconds limit);
    // Drops what is queued. The take() in progress, or else the next one, returns Ended. Later ones wait for new bytes.
    void breakOff();
    // Every take() in progress and every later one returns Ended.
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

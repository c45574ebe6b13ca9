// SPDX-License-Identifier: Apache-2.0
// Captured bytes on their way from the sound server's thread to the reader. The reader is woken once, when all that it
// waits for is there. What is not read in time is dropped, the oldest first.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <vector>

namespace audio {

class SampleQueue {
public:
    enum class Taken { All, TimedOut, Ended };

    explicit SampleQueue(std::size_t capacity) : mRing(capacity) {}

    // Null data stands for silence. Never blocks on the reader.
    void push(const char* data, std::size_t bytes);
    // Waits for `bytes` (at most the capacity) and takes them; nothing is taken otherwise.
    Taken take(char* out, std::size_t bytes, std::chrono::milliseconds limit);
    // Forgets what is queued; the take() in progress, else the next one, answers Ended. Those after it wait for new
    // sound.
    void breakOff();
    // Every take() in progress and later answers Ended.
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

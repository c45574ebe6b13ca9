// SPDX-License-Identifier: Apache-2.0
#include "SampleQueue.h"

#include <algorithm>
#include <cstring>

namespace audio {

void SampleQueue::push(const char* data, std::size_t bytes) {
    std::unique_lock lock(mMutex);
    if (bytes > mRing.size()) {
        data = data ? data + (bytes - mRing.size()) : nullptr;
        bytes = mRing.size();
    }
    const std::size_t space = mRing.size() - mCount;
    if (bytes > space) {
        mFirst = (mFirst + bytes - space) % mRing.size();
        mCount -= bytes - space;
    }
    write(data, bytes);
    if (mWanted != 0 && mCount >= mWanted) {
        // Unlocks first, so that the reader does not wait for the lock when it wakes.
        lock.unlock();
        mEnough.notify_one();
    }
}

void SampleQueue::write(const char* data, std::size_t bytes) {
    const std::size_t at = (mFirst + mCount) % mRing.size();
    const std::size_t front = std::min(bytes, mRing.size() - at);
    if (data) {
        std::memcpy(&mRing[at], data, front);
        std::memcpy(mRing.data(), data + front, bytes - front);
    } else {
        std::memset(&mRing[at], 0, front);
        std::memset(mRing.data(), 0, bytes - front);
    }
    mCount += bytes;
}

SampleQueue::Taken SampleQueue::take(char* out, std::size_t bytes, std::chrono::milliseconds limit) {
    std::unique_lock lock(mMutex);
    mWanted = bytes;
    const bool woken = mEnough.wait_for(lock, limit, [&] { return mEnded || mBroken || mCount >= bytes; });
    mWanted = 0;
    if (mEnded || mBroken) {
        mBroken = false;
        return Taken::Ended;
    }
    if (!woken) {
        return Taken::TimedOut;
    }
    const std::size_t front = std::min(bytes, mRing.size() - mFirst);
    std::memcpy(out, &mRing[mFirst], front);
    std::memcpy(out + front, mRing.data(), bytes - front);
    mFirst = (mFirst + bytes) % mRing.size();
    mCount -= bytes;
    return Taken::All;
}

void SampleQueue::breakOff() {
    const std::lock_guard lock(mMutex);
    mCount = 0;
    mBroken = true;
    mEnough.notify_all();
}

void SampleQueue::resume() {
    const std::lock_guard lock(mMutex);
    mBroken = false;
}

void SampleQueue::end() {
    const std::lock_guard lock(mMutex);
    mEnded = true;
    mEnough.notify_all();
}

}  // namespace audio

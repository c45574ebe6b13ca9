// SPDX-License-Identifier: Apache-2.0
#include "ReplaySource.h"

#include <cstdlib>
#include <stdexcept>
#include <string>

namespace audio {

namespace {

// A reader that falls further behind misses frames, as with a real microphone.
constexpr std::chrono::seconds kBacklog{1};

std::string text(const char* variable) {
    const char* value = std::getenv(variable);
    return value ? value : "";
}

bool isFast() {
    const std::string pace = text("ORVANE_AUDIO_REPLAY_PACE");
    if (!pace.empty() && pace != "fast" && pace != "realtime") {
        throw std::runtime_error("ORVANE_AUDIO_REPLAY_PACE is \"" + pace + "\" instead of \"realtime\" or \"fast\"");
    }
    return pace == "fast";
}

std::unique_ptr<Recording> open(const std::string& path, const Format& format) {
    try {
        return std::make_unique<Recording>(path, format);
    } catch (const std::exception& fault) {
        throw std::runtime_error("cannot replay " + path + ": " + fault.what());
    }
}

}  // namespace

ReplaySource::ReplaySource(const Format& format) : mFormat(format), mFast(isFast()) {
    const std::string path = text("ORVANE_AUDIO_REPLAY");
    mRecording = open(path, format);
    mClock = ReplayClock::of(path);
    mBegan = mFast ? mClock->furthest() : mClock->elapsed();
    mRecording->seek(mBegan);
    mStart = Clock::now();
}

bool ReplaySource::read(int16_t* samples, std::size_t frames) {
    std::size_t count = mRecording ? mRecording->read(samples, frames) : 0;
    if (count < frames) {
        if (mRecording && mFast) {
            mStart = Clock::now() -
                     std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds(mRead)));
        }
        mRecording.reset();
        addQuiet(samples + count * mFormat.channels, frames - count);
    }
    mRead += static_cast<int64_t>(frames);
    if (mFast) {
        mClock->reached(mBegan + seconds(mRead));
    }
    if (mFast && mRecording) {
        const std::lock_guard lock(mMutex);
        return !mInterrupted;
    }
    return waitUntilDue();
}

// A microphone never delivers digital silence.
void ReplaySource::addQuiet(int16_t* samples, std::size_t frames) {
    for (std::size_t i = 0; i < frames * mFormat.channels; ++i) {
        mNoise = mNoise * 1664525 + 1013904223;
        samples[i] = static_cast<int16_t>(static_cast<int>(mNoise >> 30) - 1);
    }
}

bool ReplaySource::waitUntilDue() {
    const auto due =
        mStart + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds(mRead)));
    const auto late = Clock::now() - due;
    if (late > kBacklog) {
        mStart += late - kBacklog;
        if (mRecording) {
            mBegan += std::chrono::duration<double>(late - kBacklog).count();
            mRecording->seek(mBegan + seconds(mRead));
        }
    }
    std::unique_lock lock(mMutex);
    mChanged.wait_until(lock, due, [this] { return mInterrupted; });
    return !mInterrupted;
}

void ReplaySource::interrupt() noexcept {
    const std::lock_guard lock(mMutex);
    mInterrupted = true;
    mChanged.notify_all();
}

}  // namespace audio

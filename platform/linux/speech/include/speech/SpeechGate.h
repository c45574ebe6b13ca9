// SPDX-License-Identifier: Apache-2.0
// Distinguishes speech from the room's noise by its level. This takes a hundredth of the time of decoding, so silence
// costs almost nothing. Not thread-safe.
#pragma once

#include <cstddef>
#include <cstdint>

namespace speech {

class SpeechGate {
public:
    // marginDb: how much louder than the room's noise a sound must be to open the gate. holdMilliseconds: how long the
    // gate stays open after the last such sound.
    SpeechGate(double marginDb, int holdMilliseconds);

    // Samples at 16 kHz, processed in steps of 10 ms; the next call continues an incomplete step.
    void accept(const int16_t* samples, std::size_t count);

    bool isOpen() const { return mSilentFrames < mHoldFrames; }
    // The time since the last loud sound.
    int silentMilliseconds() const { return mSilentFrames * kFrameMilliseconds; }
    // The total duration of loud sounds since close().
    int heardMilliseconds() const { return mHeardFrames * kFrameMilliseconds; }
    // Closes the gate but keeps the estimate of the room's noise.
    void close();

private:
    static constexpr int kFrameMilliseconds = 10;
    static constexpr std::size_t kFrameSamples = 160;

    void judge(double levelDb);
    void learn(double levelDb);

    const double mMarginDb;
    const int mHoldFrames;
    int mSilentFrames;
    int mLoudFrames = 0;  // consecutive
    int mHeardFrames = 0;
    double mFloorDb;
    // The incomplete step.
    double mEnergy = 0;
    std::size_t mFilled = 0;
    int mPrevious = 0;
};

}  // namespace speech

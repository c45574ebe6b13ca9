// SPDX-License-Identifier: Apache-2.0
// Tells speech from the room's own noise by level, for a hundredth of what decoding costs: nothing is decoded while
// nobody speaks. Not thread-safe.
#pragma once

#include <cstddef>
#include <cstdint>

namespace speech {

class SpeechGate {
public:
    // marginDb: how far above the room's noise a sound must be. hold: milliseconds for which the gate stays open after
    // the last such sound.
    SpeechGate(double marginDb, int holdMilliseconds);

    // 16 kHz samples. Levels are judged in frames of 10 ms, a remainder with the next call.
    void accept(const int16_t* samples, std::size_t count);

    bool isOpen() const { return mSilentFrames < mHoldFrames; }
    // Since the last loud sound; grows without bound while it is silent.
    int silentMilliseconds() const { return mSilentFrames * kFrameMilliseconds; }
    // Of loud sound since the gate was last closed by hand.
    int heardMilliseconds() const { return mHeardFrames * kFrameMilliseconds; }
    // Closes the gate; what was learnt about the room stays.
    void close();

private:
    static constexpr int kFrameMilliseconds = 10;
    static constexpr std::size_t kFrameSamples = 160;

    void judge(double levelDb);
    void learn(double levelDb);

    const double mMarginDb;
    const int mHoldFrames;
    int mSilentFrames;
    int mLoudFrames = 0;  // in a row
    int mHeardFrames = 0;
    double mFloorDb;
    // Of the frame being filled.
    double mEnergy = 0;
    std::size_t mFilled = 0;
    int mPrevious = 0;
};

}  // namespace speech

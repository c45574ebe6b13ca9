// SPDX-License-Identifier: Apache-2.0
#include "speech/SpeechGate.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace speech {

namespace {

// All levels are in dB of full scale and exclude low frequencies, such as hum or a compressor.
constexpr double kQuietestFloor = -72;
constexpr double kLoudestFloor = -30;
constexpr double kFirstFloor = -60;
// Rates per step of 10 ms. The estimate adapts to a quieter room within a few steps and to a louder room within
// seconds.
constexpr double kFallShare = 0.2;
constexpr double kRiseDb = 0.02;
// Clicks are shorter than any speech sound.
constexpr int kFramesToOpen = 3;

double levelOf(double energy, std::size_t samples) {
    return 10 * std::log10(energy / static_cast<double>(samples) / (32768.0 * 32768.0) + 1e-12);
}

}  // namespace

SpeechGate::SpeechGate(double marginDb, int holdMilliseconds)
    : mMarginDb(marginDb),
      mHoldFrames(holdMilliseconds / kFrameMilliseconds),
      mSilentFrames(mHoldFrames),
      mFloorDb(kFirstFloor) {}

void SpeechGate::accept(const int16_t* samples, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const double high = samples[i] - 0.95 * mPrevious;
        mPrevious = samples[i];
        mEnergy += high * high;
        if (++mFilled == kFrameSamples) {
            judge(levelOf(mEnergy, kFrameSamples));
            mEnergy = 0;
            mFilled = 0;
        }
    }
}

void SpeechGate::close() {
    mSilentFrames = mHoldFrames;
    mLoudFrames = 0;
    mHeardFrames = 0;
}

void SpeechGate::judge(double levelDb) {
    mLoudFrames = levelDb > mFloorDb + mMarginDb ? mLoudFrames + 1 : 0;
    learn(levelDb);
    if (mLoudFrames >= kFramesToOpen) {
        mHeardFrames += mLoudFrames == kFramesToOpen ? kFramesToOpen : 1;
        mSilentFrames = 0;
    } else if (mSilentFrames < std::numeric_limits<int>::max() / kFrameMilliseconds) {
        ++mSilentFrames;
    }
}

void SpeechGate::learn(double levelDb) {
    const double change =
        levelDb < mFloorDb ? kFallShare * (levelDb - mFloorDb) : std::min(kRiseDb, levelDb - mFloorDb);
    mFloorDb = std::clamp(mFloorDb + change, kQuietestFloor, kLoudestFloor);
}

}  // namespace speech

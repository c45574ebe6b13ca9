// SPDX-License-Identifier: Apache-2.0
#include "speech/Dither.h"

#include <algorithm>

namespace speech {

int Dither::noise() {
    // Xorshift is deterministic, so the same recording gives the same result.
    mState ^= mState << 13;
    mState ^= mState >> 17;
    mState ^= mState << 5;
    return static_cast<int>(mState & 7) - static_cast<int>((mState >> 3) & 7);
}

void Dither::apply(int16_t* samples, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        samples[i] = static_cast<int16_t>(std::clamp(samples[i] + noise(), -32768, 32767));
    }
}

}  // namespace speech

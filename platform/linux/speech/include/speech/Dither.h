// SPDX-License-Identifier: Apache-2.0
// A little noise under the sound. Digital silence (a muted source, a player's gap) has no spectrum, and the decoder's
// noise estimate is upset by it for the words that follow.
#pragma once

#include <cstddef>
#include <cstdint>

namespace speech {

class Dither {
public:
    // Adds triangular noise of a few steps (about -80 dB of full scale) to each sample, in place.
    void apply(int16_t* samples, std::size_t count);

private:
    int noise();

    uint32_t mState = 0x2545F491;
};

}  // namespace speech

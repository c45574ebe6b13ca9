// SPDX-License-Identifier: Apache-2.0
// Adds a little noise to the samples. Digital silence (a muted source, or a gap in a player's output) has no spectrum
// and distorts the decoder's noise estimate for the words after it.
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

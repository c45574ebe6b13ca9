// SPDX-License-Identifier: Apache-2.0
// The level of a block in decibels.
#include <math.h>
#include <string.h>

#include "Controller/SRecorder.h"

namespace OrvaneDA {

namespace {

constexpr int WORD = 4;  // bytes: one sample that counts toward the level and one that does not

// The square of the little-endian sample in the lower half of a word.
inline uint32_t squareOf(uint32_t word) {
    const int sample = static_cast<int16_t>(word);
    return static_cast<uint32_t>(sample * sample);
}

inline uint32_t wordAt(const char* data) {
    uint32_t word;
    memcpy(&word, data, sizeof word);
    return word;
}

// `size` must be at least 1. The sum of two squares fits in 32 unsigned bits, so each 64-bit addition handles two
// samples, one from each half of the block. This lets the compiler load whole registers.
int64_t sumOfSquares(const char* data, int size) {
    const int words = size / WORD;
    const int half = words / 2;
    const char* secondHalf = data + half * WORD;
    int64_t sum = 0;
    for (int i = 0; i < half; ++i) {
        sum += squareOf(wordAt(data + i * WORD)) + squareOf(wordAt(secondHalf + i * WORD));
    }
    if (words % 2 != 0) {
        sum += squareOf(wordAt(data + (words - 1) * WORD));
    }
    if (size % WORD != 0) {
        uint32_t last = 0;
        memcpy(&last, data + words * WORD, size % WORD);
        sum += squareOf(last);
    }
    return sum;
}

}  // namespace

float SRecorder::_get_volume_decibel(char* data, int size) {
    float mean = 0;
    if (size > 0) {
        const int samples = (size - 1) / WORD + 1;
        mean = static_cast<float>(sumOfSquares(data, size)) / static_cast<float>(samples);
    }
    const float rms = sqrtf(mean);
    return static_cast<float>(20.0 * log10(rms * 3.0517578e-5));
}

}  // namespace OrvaneDA

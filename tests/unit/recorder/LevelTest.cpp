// SPDX-License-Identifier: Apache-2.0
// The level of a block equals the result of the plain formula, bit for bit.
#include <gtest/gtest.h>
#include <math.h>
#include <string.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "Controller/SRecorder.h"

namespace {

using Block = std::vector<char>;

// The formula, one sample at a time.
float plainLevel(const Block& block) {
    long long sum = 0;
    int samples = 0;
    for (size_t at = 0; at < block.size(); at += 4) {
        unsigned char bytes[2] = {};
        memcpy(bytes, block.data() + at, std::min<size_t>(2, block.size() - at));
        const long long sample = static_cast<short>(bytes[0] | bytes[1] << 8);
        sum += sample * sample;
        ++samples;
    }
    const float mean = static_cast<float>(sum) / static_cast<float>(samples);
    return static_cast<float>(20 * log10(sqrtf(mean) * 3.0517578e-5));
}

uint32_t bitsOf(float value) {
    uint32_t bits = 0;
    memcpy(&bits, &value, sizeof bits);
    return bits;
}

void expectPlainLevel(Block block, const std::string& what) {
    const float level = OrvaneDA::SRecorder::_get_volume_decibel(block.data(), static_cast<int>(block.size()));
    EXPECT_EQ(bitsOf(level), bitsOf(plainLevel(block))) << what << ", " << block.size() << " bytes: " << level;
}

Block filled(int bytes, short sample) {
    Block block(static_cast<size_t>(bytes));
    for (size_t at = 0; at < block.size(); ++at) {
        block[at] = static_cast<char>(at % 2 == 0 ? sample & 0xff : sample >> 8);
    }
    return block;
}

float decibel(std::vector<short> samples) {
    return OrvaneDA::SRecorder::_get_volume_decibel(reinterpret_cast<char*>(samples.data()),
                                                    static_cast<int>(samples.size() * 2));
}

// Some end after the low byte of a sample.
constexpr int SIZES[] = {1,  2,  3,  4,  5,   6,   7,   8,   9,   12,  13,   16,
                         31, 32, 60, 64, 100, 510, 511, 512, 513, 514, 1023, 1024};

TEST(TheLevelOfABlock, EqualsThePlainFormulaForSamplesAtTheEndsOfTheirRange) {
    for (const int size : SIZES) {
        for (const int sample : {-32768, -32767, -16384, -256, -255, -1, 0, 1, 127, 128, 255, 256, 32766, 32767}) {
            expectPlainLevel(filled(size, static_cast<short>(sample)), std::to_string(sample));
        }
    }
}

TEST(TheLevelOfABlock, EqualsThePlainFormulaForOneLoudSampleAnywhere) {
    for (int at = 0; at + 1 < 512; at += 2) {
        Block block(512);
        block[static_cast<size_t>(at) + 1] = static_cast<char>(0x80);
        expectPlainLevel(block, "loud at " + std::to_string(at));
    }
}

TEST(TheLevelOfABlock, EqualsThePlainFormulaForNoise) {
    std::mt19937 random(20);
    for (int round = 0; round < 200; ++round) {
        for (const int size : SIZES) {
            Block block(static_cast<size_t>(size));
            for (char& byte : block) {
                byte = static_cast<char>(random());
            }
            expectPlainLevel(block, "noise");
        }
    }
}

TEST(TheLevelOfABlock, EqualsThePlainFormulaAtOddAddresses) {
    Block shifted = filled(516, -12345);
    shifted.insert(shifted.begin(), 'x');
    EXPECT_EQ(bitsOf(OrvaneDA::SRecorder::_get_volume_decibel(shifted.data() + 1, 516)),
              bitsOf(plainLevel(filled(516, -12345))));
}

TEST(TheLevelOfABlock, IsMinusInfinityForAnEmptyBlock) {
    char nothing = 1;
    EXPECT_EQ(OrvaneDA::SRecorder::_get_volume_decibel(&nothing, 0), -INFINITY);
    EXPECT_EQ(OrvaneDA::SRecorder::_get_volume_decibel(&nothing, -3), -INFINITY);
}

TEST(TheLevelOfABlock, IsInDecibelsOfFullScale) {
    EXPECT_NEAR(decibel({16384, 0}), -6.02, 0.01);
    EXPECT_EQ(decibel({0, 0, 0, 0}), -INFINITY);
}

TEST(TheLevelOfABlock, CountsOnlyEverySecondSample) {
    EXPECT_EQ(decibel({0, 30000, 0, -30000}), -INFINITY);
    EXPECT_NEAR(decibel({8192, 0, -8192, 0}), -12.04, 0.01);
    EXPECT_NEAR(decibel({16384, 0, 0}), 20 * log10(0.5 / sqrt(2)), 0.01);
}

}  // namespace

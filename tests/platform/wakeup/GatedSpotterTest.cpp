// SPDX-License-Identifier: Apache-2.0
// What the gate passes to the spotter behind it.
#include "wakeup/GatedSpotter.h"

#include <gtest/gtest.h>

#include "Speech.h"

namespace {

using speech::join;
using speech::noise;
using speech::silence;

struct Calls {
    int begins = 0;
    int ends = 0;
    std::size_t samples = 0;
    std::size_t detectAfter = 0;  // samples; 0: never
};

class CountingSpotter final : public wakeup::Spotter {
public:
    explicit CountingSpotter(Calls& calls) : mCalls(calls) {}

    void begin() override { ++mCalls.begins; }
    std::optional<wakeup::Detection> accept(const int16_t*, std::size_t count) override {
        mCalls.samples += count;
        if (mCalls.detectAfter == 0 || mCalls.samples < mCalls.detectAfter) {
            return std::nullopt;
        }
        return wakeup::Detection{"hey", 50};
    }
    std::optional<wakeup::Detection> end() override {
        ++mCalls.ends;
        return std::nullopt;
    }

private:
    Calls& mCalls;
};

class AGatedSpotter : public testing::Test {
protected:
    void accept(const speech::Samples& samples) {
        for (std::size_t i = 0; i + 256 <= samples.size(); i += 256) {
            mDetections += mSpotter.accept(samples.data() + i, 256) ? 1 : 0;
        }
    }

    Calls mCalls;
    wakeup::GatedSpotter mSpotter{std::make_unique<CountingSpotter>(mCalls), 9};
    int mDetections = 0;
};

TEST_F(AGatedSpotter, PassesNothingOnInAQuietRoom) {
    mSpotter.begin();
    accept(join({silence(5), noise(60, 20)}));
    EXPECT_EQ(mCalls.samples, 0U);
    EXPECT_EQ(mCalls.begins, 0);
}

TEST_F(AGatedSpotter, PassesOnTheHalfSecondBeforeASoundAndTheSound) {
    mSpotter.begin();
    accept(join({silence(5), noise(1, 3000)}));
    EXPECT_EQ(mCalls.begins, 1);
    EXPECT_GE(mCalls.samples, 16000U * 3 / 2 - 1024);
    EXPECT_LE(mCalls.samples, 16000U * 2);
}

TEST_F(AGatedSpotter, PassesOnTwoSecondsBeforeASoundIfItShould) {
    wakeup::GatedSpotter spotter(std::make_unique<CountingSpotter>(mCalls), 9, wakeup::GatedSpotter::TwoSeconds);
    spotter.begin();
    const speech::Samples sound = join({silence(5), noise(1, 3000)});
    for (std::size_t i = 0; i + 256 <= sound.size(); i += 256) {
        spotter.accept(sound.data() + i, 256);
    }
    EXPECT_GE(mCalls.samples, 16000U * 3 - 1024);
    EXPECT_LE(mCalls.samples, 16000U * 5);
}

TEST_F(AGatedSpotter, EndsTheSearchWhenTheRoomIsQuietAgain) {
    mSpotter.begin();
    accept(join({silence(1), noise(1, 3000), silence(1)}));
    EXPECT_EQ(mCalls.ends, 1);
    const std::size_t samples = mCalls.samples;
    accept(silence(10));
    EXPECT_EQ(mCalls.samples, samples);
}

TEST_F(AGatedSpotter, ReportsADetection) {
    mCalls.detectAfter = 16000;
    mSpotter.begin();
    accept(join({silence(1), noise(1, 3000)}));
    EXPECT_GE(mDetections, 1);
}

}  // namespace

// SPDX-License-Identifier: Apache-2.0
#include "wakeup/RenewedSpotter.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "wakeup/WakeupConfig.h"

namespace {

using wakeup::Detection;
using wakeup::RenewedSpotter;

// Detects everything, or fails.
class TestSpotter : public wakeup::Spotter {
public:
    explicit TestSpotter(const bool& fails) : mFails(fails) {}

    void begin() override { run(); }
    std::optional<Detection> accept(const int16_t*, std::size_t) override { return run(); }
    std::optional<Detection> end() override { return run(); }

private:
    Detection run() const {
        if (mFails) {
            throw std::runtime_error("out of memory");
        }
        return {"hey", 100};
    }

    const bool& mFails;
};

class ARenewedSpotter : public testing::Test {
protected:
    void failOnce() {
        mFails = true;
        EXPECT_THROW(mSpotter.accept(nullptr, 0), std::runtime_error);
        mFails = false;
    }
    std::string problems() const { return process::shared<status::Problems>().text(); }

    bool mFails = false;
    bool mMissing = false;
    int mMade = 0;
    RenewedSpotter mSpotter{[this] {
        if (mMissing) {
            throw wakeup::ConfigFault{nuance::IWakeupListener::COULD_NOT_FIND_ACMOD, "no model"};
        }
        ++mMade;
        return std::make_unique<TestSpotter>(mFails);
    }};
};

TEST_F(ARenewedSpotter, MakesOneSpotterForAllSearches) {
    for (int search = 0; search < 3; ++search) {
        mSpotter.begin();
        EXPECT_TRUE(mSpotter.accept(nullptr, 0));
        EXPECT_TRUE(mSpotter.end());
    }
    EXPECT_EQ(mMade, 1);
}

TEST_F(ARenewedSpotter, MakesAnotherOneForTheSearchAfterAFailure) {
    mSpotter.begin();
    failOnce();
    EXPECT_EQ(mMade, 1) << "the failed search has ended";
    mSpotter.begin();
    EXPECT_EQ(mMade, 2);
    EXPECT_TRUE(mSpotter.accept(nullptr, 0));
}

TEST_F(ARenewedSpotter, IsAProblemOfTheServiceFromItsFailureToTheNextSearch) {
    mSpotter.begin();
    EXPECT_EQ(problems(), "Ready");
    failOnce();
    EXPECT_EQ(problems(), "No wake engine: out of memory");
    mSpotter.begin();
    EXPECT_EQ(problems(), "Ready");
}

TEST_F(ARenewedSpotter, FailsEverySearchUntilItsModelReturns) {
    mSpotter.begin();
    failOnce();
    mMissing = true;
    for (int search = 0; search < 2; ++search) {
        EXPECT_THROW(mSpotter.begin(), std::exception);
    }
    mMissing = false;
    mSpotter.begin();
    EXPECT_TRUE(mSpotter.accept(nullptr, 0));
}

TEST(ASpotterThatCannotBeMade, ThrowsItsOwnReason) {
    EXPECT_THROW(RenewedSpotter([]() -> std::unique_ptr<wakeup::Spotter> {
                     throw wakeup::ConfigFault{nuance::IWakeupListener::COULD_NOT_FIND_ACMOD, "no model"};
                 }),
                 wakeup::ConfigFault);
}

}  // namespace

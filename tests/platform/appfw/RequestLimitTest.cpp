// SPDX-License-Identifier: Apache-2.0
#include "appfw/RequestLimit.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace std::chrono_literals;

class ARequestLimit : public testing::Test {
protected:
    // How many of `count` requests it accepts, one after the other.
    int accepts(int count, const std::string& sender = ":1.1") {
        int accepted = 0;
        for (int i = 0; i < count; ++i) {
            accepted += mLimit.accept(sender, mNow) != nullptr ? 1 : 0;
        }
        return accepted;
    }

    appfw::RequestLimit mLimit;
    appfw::RequestLimit::Clock::time_point mNow{1h};
};

TEST_F(ARequestLimit, AcceptsTwentyRequestsOfASenderWithinASecond) {
    EXPECT_EQ(accepts(15), 15);
    mNow += 999ms;
    EXPECT_EQ(accepts(100), 5);
    mNow += 1ms;
    EXPECT_EQ(accepts(100), 15);
    mNow += 999ms;
    EXPECT_EQ(accepts(100), 5);
}

TEST_F(ARequestLimit, CountsEachSenderSeparately) {
    EXPECT_EQ(accepts(100), 20);
    EXPECT_EQ(accepts(100, ":1.2"), 20);
}

TEST_F(ARequestLimit, AcceptsTenRequestsThatArePending) {
    std::vector<appfw::RequestLimit::Pending> pending;
    for (int i = 0; i < 10; ++i) {
        pending.push_back(mLimit.accept(":1.1", mNow));
        ASSERT_NE(pending.back(), nullptr);
    }
    mNow += 1h;
    EXPECT_EQ(accepts(1), 0);
    EXPECT_EQ(accepts(1, ":1.2"), 1);
    pending.pop_back();
    EXPECT_EQ(accepts(1), 1);
}

TEST_F(ARequestLimit, CountsARequestOnceHoweverManyCopiesExist) {
    const std::vector<appfw::RequestLimit::Pending> copies(100, mLimit.accept(":1.1", mNow));
    EXPECT_EQ(accepts(1), 1);
}

}  // namespace

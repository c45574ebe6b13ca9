// SPDX-License-Identifier: Apache-2.0
// Calls that the service refuses: those of another user, and those that are too large.
#include <gtest/gtest.h>

#include <fstream>

#include "RunningService.h"
#include "support/Caller.h"
#include "support/MainLoop.h"

namespace {

using Words = std::vector<std::string>;

constexpr char kAccessDenied[] = "org.freedesktop.DBus.Error.AccessDenied";
constexpr char kTooLarge[] = "org.orvane.Error.TooLarge";

class TheApplicationObject : public testing::Test {
protected:
    static Words words(const std::string& method, const Words& extras = {}) {
        Words all{SERVICE_ID, "/org/orvane/Application", "org.orvane.Application1", method};
        all.insert(all.end(), extras.begin(), extras.end());
        return all;
    }
    long residentMb() {
        std::ifstream status("/proc/" + std::to_string(mService.process().id()) + "/status");
        for (std::string word; status >> word;) {
            if (word == "VmRSS:") {
                long kilobytes = 0;
                status >> kilobytes;
                return kilobytes / 1024;
            }
        }
        return -1;
    }

    const Caller mCaller;
    RunningService mService{{"env", "G_SLICE=always-malloc", APPFW_SERVICE}};  // as in the unit
};

TEST_F(TheApplicationObject, RefusesEveryCallOfAnotherUser) {
    if (!Caller::canBecomeAnotherUser()) {
        GTEST_SKIP() << "only root can become another user";
    }
    for (const char* method : {"Launch", "Reply", "Close"}) {
        EXPECT_EQ(mCaller.callAsAnotherUser(words(method)), kAccessDenied) << method;
    }
    EXPECT_EQ(mCaller.call(words("Launch")), "accepted");
    EXPECT_EQ(mService.line(), "operation nothing");
    EXPECT_EQ(mCaller.call(words("Close")), "accepted");
    EXPECT_EQ(mService.rest(), "terminate\n");
}

TEST_F(TheApplicationObject, AcceptsARequestWithinTheLimits) {
    EXPECT_EQ(mCaller.call(words("Launch", {"1900", "10"})), "accepted");
    EXPECT_EQ(mService.line(), "operation nothing");
}

TEST_F(TheApplicationObject, RefusesCallsWithManyValuesAndReturnsTheirMemory) {
    const long before = residentMb();
    for (const char* method : {"Launch", "Reply"}) {
        EXPECT_EQ(mCaller.call(words(method, {"200000", "2"})), kTooLarge) << method;
    }
    EXPECT_TRUE(runMainLoopUntil([&] { return residentMb() < before + 20; })) << residentMb() << " MB after " << before;
}

// GDBus keeps the buffer into which it has read the largest message.
TEST_F(TheApplicationObject, RefusesLongCallsAndKeepsNoMoreThanTheirSize) {
    const long before = residentMb();
    for (const char* method : {"Launch", "Reply", "Launch"}) {
        EXPECT_EQ(mCaller.call(words(method, {"600", "100000"})), kTooLarge) << method;
    }
    EXPECT_TRUE(runMainLoopUntil([&] { return residentMb() < before + 80; })) << residentMb() << " MB after " << before;
    EXPECT_EQ(mCaller.call(words("Launch")), "accepted");
    EXPECT_EQ(mService.lineWith("operation"), "operation nothing");
}

}  // namespace

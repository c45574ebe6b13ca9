// SPDX-License-Identifier: Apache-2.0
// What the service manager learns about the service.
#include "status/Notify.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "status/Problems.h"
#include "status/Supervisor.h"
#include "support/NotifySocket.h"
#include "support/PrivateHome.h"

using status::Problems;
using status::Supervisor;
using status::Work;

namespace {

class TheStatusText : public testing::Test {
protected:
    PrivateHome mHome;
    NotifySocket mManager{mHome.folder()};
    Problems mProblems;
};

TEST_F(TheStatusText, NamesEveryProblemUntilItIsGone) {
    mProblems.set(Problems::Part::Recognizer, "No speech recognizer for en_US");
    EXPECT_EQ(mManager.next(), "STATUS=No speech recognizer for en_US");
    mProblems.set(Problems::Part::Capture, "No microphone");
    EXPECT_EQ(mManager.next(), "STATUS=No microphone; No speech recognizer for en_US");
    mProblems.set(Problems::Part::Recognizer, "");
    EXPECT_EQ(mManager.next(), "STATUS=No microphone");
    mProblems.set(Problems::Part::Capture, "");
    EXPECT_EQ(mManager.next(), "STATUS=Ready");
}

TEST_F(TheStatusText, IsSentOnceForEachChange) {
    mProblems.set(Problems::Part::Capture, "");
    mProblems.set(Problems::Part::Capture, "No microphone");
    mProblems.set(Problems::Part::Capture, "No microphone");
    mProblems.set(Problems::Part::Capture, "");
    EXPECT_EQ(mManager.next(), "STATUS=No microphone");
    EXPECT_EQ(mManager.next(), "STATUS=Ready");
}

TEST(AServiceManager, MayBeMissing) {
    unsetenv("NOTIFY_SOCKET");
    status::notifyManager("READY=1");
    setenv("NOTIFY_SOCKET", "/nonexistent/notify", 1);
    status::notifyManager("READY=1");
    unsetenv("NOTIFY_SOCKET");
}

TEST(TheWatchdogLimit, IsThatOfThisProcessAndIsTakenOnce) {
    unsetenv("WATCHDOG_PID");
    setenv("WATCHDOG_USEC", "10000000", 1);
    EXPECT_EQ(status::takeWatchdogLimit().count(), 10000000);
    EXPECT_EQ(status::takeWatchdogLimit().count(), 0);
    setenv("WATCHDOG_USEC", "10000000", 1);
    setenv("WATCHDOG_PID", "1", 1);
    EXPECT_EQ(status::takeWatchdogLimit().count(), 0);
    unsetenv("WATCHDOG_PID");
}

TEST(SupervisedWork, HangsIfItTakesLongerThanTheLimit) {
    Supervisor supervisor;
    const auto late = Supervisor::Clock::now() + Supervisor::kLimit + std::chrono::seconds(1);
    EXPECT_EQ(supervisor.hanging(late), "");
    {
        const Work capture(supervisor, "capture");
        const Work decoding(supervisor, "the recognizer");
        EXPECT_EQ(supervisor.hanging(Supervisor::Clock::now()), "");
        EXPECT_EQ(supervisor.hanging(late), "capture");
    }
    EXPECT_EQ(supervisor.hanging(late), "");
}

TEST(SupervisedWork, MayHaveALongerLimit) {
    Supervisor supervisor;
    const auto late = Supervisor::Clock::now() + Supervisor::kLimit + std::chrono::seconds(1);
    const Work slow(supervisor, "slow", std::chrono::minutes(1));
    EXPECT_EQ(supervisor.hanging(late), "");
    const Work capture(supervisor, "capture");
    EXPECT_EQ(supervisor.hanging(late), "capture");
    EXPECT_EQ(supervisor.hanging(late + std::chrono::minutes(1)), "capture");
}

}  // namespace

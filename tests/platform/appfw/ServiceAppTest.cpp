// SPDX-License-Identifier: Apache-2.0
// The life cycle of the service.
#include <gtest/gtest.h>
#include <signal.h>

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

#include "OtherApp.h"
#include "RunningService.h"
#include "support/NotifySocket.h"
#include "support/OpenBus.h"
#include "support/PrivateBus.h"

namespace {

TEST(TheHelpOption, PrintsTheUsageAndExitsWithZero) {
    Program service({APPFW_SERVICE, "--help"});
    EXPECT_EQ(service.line(), "Usage: orvane-da-service [--help]");
    service.rest();
    EXPECT_EQ(service.wait(), 0);
}

TEST(AnUnknownOption, PrintsOneLineAndExitsWithTwo) {
    Program service({APPFW_SERVICE, "--nonsense"});
    EXPECT_NE(service.line().find("--nonsense"), std::string::npos);
    EXPECT_EQ(service.rest(), "");
    EXPECT_EQ(service.wait(), 2);
}

TEST(AServiceWhoseCreateCallbackFails, ExitsWithoutTheTerminateCallback) {
    Program service({"env", "SERVICE_GIVES_UP=1", APPFW_SERVICE});
    EXPECT_EQ(service.rest(), "create\n");
    EXPECT_NE(service.wait(), 0);
}

TEST(AServiceWithTooFewResources, PrintsTheReasonAndExitsWithOne) {
    const std::pair<const char*, const char*> limits[] = {
        {"--nofile=36", "org.orvane.da-service: cannot start: the limit of open files is below 64"},
        {"--as=900000000", "org.orvane.da-service: cannot start: the limit of address space is below 1536 MB"}};
    for (const auto& [limit, reason] : limits) {
        Program service({"prlimit", limit, APPFW_SERVICE});
        EXPECT_EQ(service.line(), reason);
        EXPECT_EQ(service.wait(), 1);
    }
}

TEST(AServiceWithALowSoftLimit, RaisesIt) {
    Program service({"prlimit", "--nofile=36:", APPFW_SERVICE});
    EXPECT_EQ(service.line(), "create");
}

// Restores the address of the bus that the other tests share.
class TheService : public testing::Test {
protected:
    void TearDown() override { setenv("DBUS_SESSION_BUS_ADDRESS", mShared.c_str(), 1); }

    const std::string mShared = getenv("DBUS_SESSION_BUS_ADDRESS");
};

TEST_F(TheService, LogsOneLineAndDoesNotStartWithoutASessionBus) {
    setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus", 1);
    Program service({APPFW_SERVICE});
    EXPECT_NE(service.line().find("there is no session bus"), std::string::npos);
    EXPECT_EQ(service.rest(), "");
    EXPECT_NE(service.wait(), 0);
}

TEST_F(TheService, LogsTheBusErrorAndDoesNotStartIfTheBusRefusesItsName) {
    const PrivateBus bus(openBus(getenv("XDG_RUNTIME_DIR"), "<deny own=\"org.orvane.da-service\"/>"));
    Program service({APPFW_SERVICE});
    const std::string line = service.line();
    EXPECT_NE(line.find("not allowed to own"), std::string::npos) << line;
    EXPECT_EQ(line.find("runs already"), std::string::npos) << line;
    EXPECT_EQ(service.rest(), "");
    EXPECT_NE(service.wait(), 0);
}

TEST_F(TheService, LogsOneLineShutsDownCleanlyAndExitsWithThreeWhenTheBusGoesAway) {
    std::optional<PrivateBus> bus(std::in_place);
    RunningService service;
    bus.reset();
    EXPECT_NE(service.line().find("the session bus has gone"), std::string::npos);
    EXPECT_EQ(service.rest(), "terminate\n");
    EXPECT_EQ(service.wait(), 3);
}

class ARunningService : public testing::TestWithParam<int> {
protected:
    RunningService mService;
};

TEST_F(ARunningService, PreventsASecondOneFromStarting) {
    Program second({APPFW_SERVICE});
    EXPECT_NE(second.line().find("the service runs already"), std::string::npos);
    EXPECT_EQ(second.rest(), "");
    EXPECT_NE(second.wait(), 0);
}

TEST_F(ARunningService, HandlesEarlierRequestsAndThenShutsDownCleanlyOnAClose) {
    OtherApp app;
    ASSERT_TRUE(app.ask(SERVICE_ID, "last"));
    EXPECT_TRUE(app.call(SERVICE_ID, "Close")) << "the service replies before it ends";
    EXPECT_EQ(mService.rest(), "operation last\nterminate\n");
    EXPECT_EQ(mService.wait(), 0);
}

TEST_F(ARunningService, LogsAMainLoopErrorInOneLineButNotTheDeletionOfATimerThatHasEnded) {
    OtherApp app;
    ASSERT_TRUE(app.ask(SERVICE_ID, "delete"));
    EXPECT_EQ(mService.line(), "operation delete");
    const std::string line = mService.line();
    EXPECT_NE(line.find("efl_loop_timer_reset: Eo ID"), std::string::npos) << line;
    EXPECT_EQ(mService.line(), "deleted");
}

TEST(ARequestThatArrivesWhileTheServiceShutsDown, DoesNotReachTheService) {
    Program service({"env", "SERVICE_ASKS_LAST=connection", APPFW_SERVICE});
    EXPECT_EQ(service.line(), "create");
    OtherApp app;
    EXPECT_TRUE(app.call(SERVICE_ID, "Close"));
    EXPECT_EQ(service.rest(), "terminate\nsent 0\n");
    EXPECT_EQ(service.wait(), 0);
}

class AServiceUnderAManager : public testing::Test {
protected:
    // Ecore's main loop reports the start, too.
    std::string nextOfOurs() const {
        const std::string message = mManager.next();
        return message == "READY=1" ? mManager.next() : message;
    }

    NotifySocket mManager{getenv("XDG_RUNTIME_DIR")};
    Program mService{{"env", "WATCHDOG_USEC=150000", APPFW_SERVICE}};
};

TEST_F(AServiceUnderAManager, ReportsItsStartFeedsTheWatchdogAndReportsItsEnd) {
    EXPECT_EQ(mManager.next(), "READY=1\nSTATUS=Ready");
    for (int times = 0; times < 5; ++times) {
        EXPECT_EQ(nextOfOurs(), "WATCHDOG=1");
    }
    OtherApp app;
    EXPECT_TRUE(app.call(SERVICE_ID, "Close"));
    std::string message = nextOfOurs();
    while (message == "WATCHDOG=1") {
        message = nextOfOurs();
    }
    EXPECT_EQ(message, "STOPPING=1");
    mService.rest();
    EXPECT_EQ(mService.wait(), 0);
}

TEST_F(AServiceUnderAManager, StopsFeedingTheWatchdogWhileTheMainLoopHangs) {
    OtherApp app;
    EXPECT_EQ(mManager.next(), "READY=1\nSTATUS=Ready");
    ASSERT_TRUE(app.ask(SERVICE_ID, "hang"));
    EXPECT_EQ(mService.line(), "create");
    EXPECT_EQ(mService.line(), "operation hang");
    while (!mManager.next(0).empty()) {
    }
    EXPECT_EQ(mManager.next(300), "") << "the watchdog gets no message for longer than its limit";
    mService.process().kill();
}

TEST_P(ARunningService, ShutsDownCleanlyOnASignal) {
    mService.process().signal(GetParam());
    EXPECT_EQ(mService.rest(), "terminate\n");
    EXPECT_EQ(mService.wait(), 0);
}

INSTANTIATE_TEST_SUITE_P(Signals, ARunningService, testing::Values(SIGTERM, SIGINT));

}  // namespace

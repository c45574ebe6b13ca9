// SPDX-License-Identifier: Apache-2.0
#include "process/FaultLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "process/Guard.h"

namespace {

using namespace std::chrono_literals;
using process::Recurrence;
using process::Recurrences;
using testing::ElementsAre;
using testing::Eq;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

const Recurrence::Clock::time_point kStart{1000h};

// The seconds at which the log shows a fault that recurs in each of these seconds.
std::vector<int> shownWithin(Recurrence& fault, int seconds) {
    std::vector<int> shown;
    for (int second = 0; second < seconds; ++second) {
        if (fault.occurred(kStart + std::chrono::seconds(second))) {
            shown.push_back(second);
        }
    }
    return shown;
}

TEST(ALastingFault, IsShownAtGrowingIntervals) {
    Recurrence fault;
    EXPECT_THAT(shownWithin(fault, 100), ElementsAre(0, 1, 3, 7, 15, 31, 63));
}

TEST(ALastingFault, IsShownAtLeastOnceAnHour) {
    Recurrence fault;
    const std::vector<int> shown = shownWithin(fault, 24 * 3600);
    ASSERT_GT(shown.size(), 24U);
    EXPECT_EQ(shown.back() - shown[shown.size() - 2], 3600);
    EXPECT_LT(shown.size(), 24U + 13U);
}

TEST(ALastingFault, IsShownWithTheNumberOfHiddenOccurrences) {
    Recurrence fault;
    EXPECT_THAT(fault.occurred(kStart), Eq(0U));
    EXPECT_EQ(fault.occurred(kStart + 300ms), std::nullopt);
    EXPECT_EQ(fault.occurred(kStart + 600ms), std::nullopt);
    EXPECT_THAT(fault.occurred(kStart + 1s), Eq(2U));
    EXPECT_EQ(fault.occurred(kStart + 2s), std::nullopt);
    EXPECT_THAT(fault.occurred(kStart + 3s), Eq(1U));
}

TEST(AFaultThatReturns, IsShownAtOnceIfItsOperationHasWorkedLongEnough) {
    Recurrence fault;
    shownWithin(fault, 3600);
    fault.endsAt(kStart + 3610s);
    fault.endsAt(kStart + 3615s);
    EXPECT_TRUE(fault.occurred(kStart + 3610s));
    EXPECT_EQ(fault.occurred(kStart + 3610s), std::nullopt);
    EXPECT_TRUE(fault.occurred(kStart + 3611s)) << "the intervals begin with a second again";
}

TEST(AFaultThatComesAndGoes, IsShownLikeALastingOne) {
    Recurrence fault;
    std::vector<int> shown;
    for (int second = 0; second < 100; ++second) {
        if (fault.occurred(kStart + std::chrono::seconds(second))) {
            shown.push_back(second);
        }
        fault.endsAt(kStart + std::chrono::seconds(second) + 10s);
    }
    EXPECT_THAT(shown, ElementsAre(0, 1, 3, 7, 15, 31, 63));
}

TEST(AFaultThatNobodyHasSeenForHours, IsNew) {
    Recurrence fault;
    shownWithin(fault, 3600);
    EXPECT_TRUE(fault.occurred(kStart + 3600s + 2h));
    EXPECT_TRUE(fault.occurred(kStart + 3601s + 2h));
}

TEST(TheFaultsOfAProcess, AreShownIndependently) {
    Recurrences faults;
    EXPECT_TRUE(faults.occurred("hub", "no route", kStart));
    EXPECT_TRUE(faults.occurred("hub", "timeout", kStart));
    EXPECT_TRUE(faults.occurred("capture", "timeout", kStart));
    EXPECT_FALSE(faults.occurred("hub", "timeout", kStart));
}

TEST(TheFaultsOfAProcess, AreNewOnlyAfterTheirOwnOperationHasWorked) {
    Recurrences faults;
    for (const char* operation : {"hub", "hub2", "capture"}) {
        faults.occurred(operation, "timeout", kStart);
        faults.occurred(operation, "timeout", kStart + 1s);
        faults.occurred(operation, "timeout", kStart + 3s);
        faults.occurred(operation, "timeout", kStart + 7s);
    }
    faults.endAt("hub", kStart + 13s);
    EXPECT_FALSE(faults.occurred("hub2", "timeout", kStart + 14s));
    EXPECT_FALSE(faults.occurred("capture", "timeout", kStart + 14s));
    EXPECT_TRUE(faults.occurred("hub", "timeout", kStart + 14s));
}

TEST(TheFaultsOfAProcess, ForgetTheOldestWhenThereAreTooMany) {
    Recurrences faults;
    for (std::size_t i = 0; i <= Recurrences::kMost; ++i) {
        EXPECT_TRUE(faults.occurred("open", std::to_string(i), kStart + std::chrono::microseconds(i)));
    }
    EXPECT_FALSE(faults.occurred("open", "1", kStart + 1ms));
    EXPECT_TRUE(faults.occurred("open", "0", kStart + 1ms));
}

TEST(ALogOfFaults, WritesAFaultAgainAfterItsOperationHasSucceeded) {
    CaptureStderr();
    process::logFault(DLOG_WARN, "orvane-lamp", "lamp", "no lamp");
    process::faultEnded("lamp");
    process::logFault(DLOG_WARN, "orvane-lamp", "lamp", "no lamp");
    process::faultEnded("lamp", 3600s);
    process::logFault(DLOG_WARN, "orvane-lamp", "lamp", "no lamp");
    EXPECT_EQ(GetCapturedStderr(), "W/orvane-lamp no lamp\nW/orvane-lamp no lamp\n");
}

TEST(ALogOfFaults, WritesTheFirstOfManyEqualLines) {
    CaptureStderr();
    EXPECT_TRUE(process::logFault(DLOG_WARN, "orvane-lamp", "lamp", "no lamp"));
    EXPECT_FALSE(process::logFault(DLOG_WARN, "orvane-lamp", "lamp", "no lamp"));
    EXPECT_EQ(GetCapturedStderr(), "W/orvane-lamp no lamp\n");
}

TEST(AGuardedFunction, ThatFailsAgainAndAgainDoesNotFillTheLog) {
    CaptureStderr();
    for (int i = 0; i < 100; ++i) {
        process::contained("lamp thread", [] { throw std::runtime_error("no lamp"); });
    }
    EXPECT_EQ(GetCapturedStderr(), "E/orvane-platform lamp thread: no lamp\n");
}

TEST(AFaultOfManyThreads, IsWrittenOnce) {
    CaptureStderr();
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([] { process::logFault(DLOG_ERROR, "orvane-lamp", "lamp", "it flickers"); });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(GetCapturedStderr(), "E/orvane-lamp it flickers\n");
}

}  // namespace

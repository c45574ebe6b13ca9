// SPDX-License-Identifier: Apache-2.0
#include "process/Guard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

using process::contained;
using process::guarded;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

TEST(AGuardedFunction, ReturnsWhatItsBodyReturns) {
    EXPECT_EQ(guarded(-1, "name", [] { return 5; }), 5);
}

TEST(AGuardedFunction, ReturnsItsCodeAndLogsItsNameForAnException) {
    CaptureStderr();
    EXPECT_EQ(guarded(-1, "light_lamp", []() -> int { throw std::runtime_error("no lamp"); }), -1);
    EXPECT_EQ(GetCapturedStderr(), "E/orvane-platform light_lamp: no lamp\n");
}

TEST(AGuardedFunction, ReturnsItsOwnCodeWhenMemoryRunsOut) {
    CaptureStderr();
    EXPECT_EQ(guarded(process::Failures<int>{-1, -2}, "light_lamp", []() -> int { throw std::bad_alloc(); }), -2);
    EXPECT_THAT(GetCapturedStderr(), testing::StartsWith("E/orvane-platform light_lamp: "));
}

TEST(AGuardedFunction, SurvivesANonstandardException) {
    CaptureStderr();
    EXPECT_EQ(guarded(nullptr, "find_lamp", []() -> const char* { throw 1; }), nullptr);
    EXPECT_EQ(GetCapturedStderr(), "E/orvane-platform find_lamp: unknown exception\n");
}

TEST(AContainedCallback, LogsAnExceptionInOneLine) {
    CaptureStderr();
    contained("lamp thread", [] { throw std::runtime_error("no lamp"); });
    EXPECT_EQ(GetCapturedStderr(), "E/orvane-platform lamp thread: no lamp\n");
}

}  // namespace

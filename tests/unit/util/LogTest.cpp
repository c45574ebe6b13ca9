// SPDX-License-Identifier: Apache-2.0
#include "Util/Log.h"

#include <sys/syscall.h>

#include <atomic>
#include <thread>

#include "fake/FakeLog.h"
#include "unit/Fixture.h"

using LogTest = PlatformTest;

namespace {

void report(int value) {
    LOGW("value %d of %s", value, "x");
}
int line;
void silent() {
    line = __LINE__ + 1;
    LOGI("");
}
bool launch(int result) {
    line = __LINE__ + 1;
    return Util::succeededOrLogged(result, "Fail to launch");
}
int evaluations = 0;
int evaluated() {
    return ++evaluations;
}

std::string self() {
    return std::to_string(syscall(SYS_gettid));
}

}  // namespace

TEST_F(LogTest, TheSystemLogGetsColorThreadFileFunctionAndLine) {
    report(7);
    const fake::LogLine logged = fake::platform().logs().at(0);
    EXPECT_EQ(logged.priority, DLOG_WARN);
    EXPECT_EQ(logged.tag, "orvane-da-service");
    EXPECT_EQ(logged.text.substr(0, 30 + self().size()).find("\033[33m[" + self() + "] LogTest.cpp: report("), 0u);
    EXPECT_EQ(logged.message, "value 7 of x");
    EXPECT_EQ(logged.text.substr(logged.text.size() - 4), "\033[0m");
}

TEST_F(LogTest, StandardOutputGetsFunctionAndLineOnly) {
    report(7);
    const std::string text = fake::output().at(0).text;
    EXPECT_EQ(text.find("[report:"), 0u);
    EXPECT_EQ(text.substr(text.find(']')), "] value 7 of x\n");
}

TEST_F(LogTest, TheSystemLogComesBeforeStandardOutput) {
    report(7);
    report(8);
    const auto lines = fake::output();
    ASSERT_EQ(lines.size(), 2u);
    for (size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(lines[i].flag, 1);
        EXPECT_EQ(lines[i].systemLines, i + 1);
    }
}

TEST_F(LogTest, EachLevelHasItsPriorityAndColor) {
    LOGD("m");
    LOGI("m");
    LOGW("m");
    LOGE("m");
    const char* colours[] = {"\033[32m", "\033[34m", "\033[33m", "\033[31m"};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(fake::platform().logs().at(i).priority, 3 + i);
        EXPECT_EQ(fake::platform().logs().at(i).text.find(colours[i]), 0u);
    }
}

TEST_F(LogTest, ALambdasLineNamesOperatorCall) {
    [] { LOGD("inside"); }();
    EXPECT_NE(fake::platform().logs().at(0).text.find(": operator()("), std::string::npos);
    EXPECT_EQ(fake::output().at(0).text.find("[operator():"), 0u);
}

TEST_F(LogTest, AMessageWithoutTextLogsOnlyPrefixAndColorReset) {
    silent();
    const std::string at = std::to_string(line);
    EXPECT_EQ(fake::platform().logs().at(0).text, "\033[34m[" + self() + "] LogTest.cpp: silent(" + at + ") > \033[0m");
    EXPECT_EQ(fake::output().at(0).text, "[silent:" + at + "] \n");
}

TEST_F(LogTest, EachThreadLogsItsOwnKernelThreadId) {
    std::string ids[2];
    std::atomic<int> ready{0};
    auto logOften = [&](int number) {
        ids[number] = self();
        ++ready;
        while (ready != 2) {
            std::this_thread::yield();
        }
        for (int i = 0; i < 50; ++i) {
            LOGD("%d", number);
        }
    };
    std::thread first(logOften, 0);
    std::thread second(logOften, 1);
    first.join();
    second.join();
    LOGD("main");
    const auto lines = fake::platform().logs();
    ASSERT_EQ(lines.size(), 101u);
    for (size_t i = 0; i < 100; ++i) {
        EXPECT_EQ(lines[i].text.find("\033[32m[" + ids[lines[i].message == "1"] + "]"), 0u);
    }
    EXPECT_NE(ids[0], ids[1]);
    EXPECT_NE(ids[0], std::to_string(getpid()));
    EXPECT_EQ(lines[100].text.find("\033[32m[" + std::to_string(getpid()) + "]"), 0u);
}

TEST_F(LogTest, ArgumentsAreEvaluatedOnce) {
    evaluations = 0;
    LOGD("%d", evaluated());
    EXPECT_EQ(evaluations, 1);
}

TEST_F(LogTest, AHelperThatLogsForItsCallerNamesTheCaller) {
    EXPECT_FALSE(launch(-1));
    const fake::LogLine logged = fake::platform().logs().at(0);
    EXPECT_EQ(logged.priority, DLOG_ERROR);
    EXPECT_EQ(logged.message, "Fail to launch");
    const std::string at = std::to_string(line);
    EXPECT_NE(logged.text.find(" LogTest.cpp: launch(" + at + ") > "), std::string::npos);
    EXPECT_EQ(fake::output().at(0).text, "[launch:" + at + "] Fail to launch\n");
}

TEST_F(LogTest, ASuccessLogsNothing) {
    EXPECT_TRUE(launch(0));
    EXPECT_TRUE(fake::platform().logs().empty());
}

TEST_F(LogTest, TheVersionLineNamesTheLogHeader) {
    Util::printVersion();
    const fake::LogLine logged = fake::platform().logs().at(0);
    EXPECT_EQ(logged.priority, DLOG_INFO);
    EXPECT_EQ(logged.message, "Orvane DA Version: 0.0.1-7.1");
    EXPECT_NE(logged.text.find(" Log.h: printVersion("), std::string::npos);
}

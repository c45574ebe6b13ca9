// SPDX-License-Identifier: Apache-2.0
// A sanitizer's report in any log of the appliance is a failure.
#include "appliance/processes/SanitizerReports.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "appliance/environment/Environment.h"

TEST(SanitizerReports, AreFoundInEveryLog) {
    const sim::Folder folder;
    folder.write("service.log", "I/x: started\n==7==ERROR: AddressSanitizer: heap-use-after-free\n  #0\n");
    folder.write("dbus.log", "Ui.cpp:7: runtime error: signed integer overflow\n");
    folder.write("notes.txt", "WARNING: ThreadSanitizer: data race\n");
    const std::string reports = sim::sanitizerReports(folder);
    EXPECT_NE(reports.find("service.log: ==7==ERROR: AddressSanitizer: heap-use-after-free\n  #0\n"),
              std::string::npos);
    EXPECT_NE(reports.find("dbus.log: Ui.cpp:7: runtime error: signed integer overflow\n"), std::string::npos);
    EXPECT_EQ(reports.find("ThreadSanitizer"), std::string::npos);
}

TEST(SanitizerReports, AreEmptyWhenTheLogsAreClean) {
    const sim::Folder folder;
    folder.write("service.log", "E/x: an error of another kind\n");
    EXPECT_EQ(sim::sanitizerReports(folder), "");
}

TEST(SanitizerReports, EndTheProgramWithAFailure) {
    EXPECT_EXIT(
        {
            const sim::Folder folder;
            const sim::SanitizerReports reports(folder);
            folder.write("service.log", "WARNING: ThreadSanitizer: data race\n");
        },
        testing::ExitedWithCode(EXIT_FAILURE), "service.log: WARNING: ThreadSanitizer: data race");
}

TEST(TheEnvironmentOfAnAppliance, KeepsTheOptionsOfTheSanitizers) {
    const sim::Folder folder;
    setenv("TSAN_OPTIONS", "history_size=2", 1);
    setenv("ORVANE_SOMETHING", "else", 1);
    const sim::Environment environment(folder);
    EXPECT_STREQ(getenv("TSAN_OPTIONS"), "history_size=2");
    EXPECT_EQ(getenv("ORVANE_SOMETHING"), nullptr);
    EXPECT_NE(getenv("PATH"), nullptr);
}

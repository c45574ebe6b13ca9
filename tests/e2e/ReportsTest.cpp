// SPDX-License-Identifier: Apache-2.0
// Reports of the sanitizers cannot be overlooked.
#include "appliance/Reports.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "appliance/Environment.h"

TEST(TheReportsOfTheSanitizers, AreFoundInEveryLog) {
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

TEST(TheReportsOfTheSanitizers, AreEmptyWhenTheLogsAreClean) {
    const sim::Folder folder;
    folder.write("service.log", "E/x: an error, but none of memory\n");
    EXPECT_EQ(sim::sanitizerReports(folder), "");
}

TEST(AReportOfASanitizer, EndsTheProgramWithAFailure) {
    EXPECT_EXIT(
        {
            const sim::Folder folder;
            const sim::Reports reports(folder);
            folder.write("service.log", "WARNING: ThreadSanitizer: data race\n");
        },
        testing::ExitedWithCode(EXIT_FAILURE), "service.log: WARNING: ThreadSanitizer: data race");
}

TEST(TheEnvironmentOfAnAppliance, KeepsWhatThePersonSaysToTheSanitizers) {
    const sim::Folder folder;
    setenv("TSAN_OPTIONS", "history_size=2", 1);
    setenv("ORVANE_SOMETHING", "else", 1);
    sim::prepareEnvironment(folder);
    EXPECT_STREQ(getenv("TSAN_OPTIONS"), "history_size=2");
    EXPECT_EQ(getenv("ORVANE_SOMETHING"), nullptr);
    EXPECT_NE(getenv("PATH"), nullptr);
}

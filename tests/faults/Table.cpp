// SPDX-License-Identifier: Apache-2.0
#include "Table.h"

#include <cstdio>

namespace faults {

namespace {

constexpr std::size_t kReportedWidth = 80;

std::string change(long before, long after) {
    return before == after ? std::to_string(before) : std::to_string(before) + ">" + std::to_string(after);
}

const char* outcome(const Row& row) {
    return row.skipped ? "skipped" : row.failure.empty() ? "ok" : "FAILED";
}

}  // namespace

void printHeading() {
    printf("%-44s %-8s %8s %8s %14s %8s %8s  %s\n", "fault", "", "recovery", "streams", "memory (MB)", "files",
           "threads", "reported");
    fflush(stdout);
}

void print(const Row& row) {
    char recovery[16] = "-";
    if (row.recovery >= 0) {
        snprintf(recovery, sizeof recovery, "%.2f s", row.recovery);
    }
    printf("%-44s %-8s %8s %8s %14s %8s %8s  %s\n", row.fault.c_str(), outcome(row), recovery,
           change(row.before.streams, row.after.streams).c_str(),
           change(row.before.residentKb / 1024, row.after.residentKb / 1024).c_str(),
           change(row.before.files, row.after.files).c_str(), change(row.before.threads, row.after.threads).c_str(),
           row.reported.substr(0, kReportedWidth).c_str());
    if (!row.failure.empty()) {
        printf("    %s\n", row.failure.c_str());
    }
    fflush(stdout);
}

}  // namespace faults

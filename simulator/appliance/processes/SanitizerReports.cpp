// SPDX-License-Identifier: Apache-2.0
#include "appliance/processes/SanitizerReports.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace sim {

namespace {

constexpr const char* kBegins[] = {"ERROR: AddressSanitizer", "ERROR: LeakSanitizer", "WARNING: ThreadSanitizer",
                                   "FATAL: ThreadSanitizer", "runtime error: "};

std::string reportIn(const std::filesystem::path& log) {
    std::ifstream file(log);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    std::size_t first = std::string::npos;
    for (const char* begin : kBegins) {
        first = std::min(first, text.find(begin));
    }
    if (first == std::string::npos) {
        return "";
    }
    const std::size_t line = text.rfind('\n', first) + 1;  // 0 when it is the first line
    return log.filename().string() + ": " + text.substr(line);
}

}  // namespace

std::string sanitizerReports(const Folder& folder) {
    std::string all;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        if (entry.path().extension() == ".log") {
            all += reportIn(entry.path());
        }
    }
    return all;
}

SanitizerReports::~SanitizerReports() {
    const std::string all = sanitizerReports(mFolder);
    if (!all.empty()) {
        fprintf(stderr, "sanitizer reports in %s:\n%s\n", mFolder.path().c_str(), all.c_str());
        fflush(nullptr);
        _Exit(EXIT_FAILURE);
    }
}

}  // namespace sim

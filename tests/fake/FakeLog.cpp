// SPDX-License-Identifier: Apache-2.0
#include <dlog.h>
#include <stdarg.h>
#include <stdio.h>
#include <string.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>

#include "fake/FakeLog.h"
#include "fake/Platform.h"

namespace {

std::mutex outputMutex;
std::vector<fake::OutputLine> outputLines;
std::atomic<size_t> systemLines{0};

const bool registered = fake::platform().addReset([] {
    std::lock_guard<std::mutex> lock(outputMutex);
    outputLines.clear();
    systemLines = 0;
});

std::string formatted(const char* format, va_list arguments) {
    char text[8192];
    vsnprintf(text, sizeof text, format, arguments);
    return text;
}

// Between the prefix "[tid] file: function(line) > " and the color reset.
std::string messageOf(const std::string& text) {
    const size_t start = text.find(" > ");
    const size_t end = text.rfind("\033[0m");
    return start == std::string::npos || end == std::string::npos ? text : text.substr(start + 3, end - start - 3);
}

}  // namespace

namespace fake {

std::vector<OutputLine> output() {
    std::lock_guard<std::mutex> lock(outputMutex);
    return outputLines;
}

}  // namespace fake

extern "C" {

int dlog_print(log_priority priority, const char* tag, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const std::string text = formatted(format, arguments);
    va_end(arguments);
    ++systemLines;
    fake::platform().log({priority, tag, text, messageOf(text), static_cast<pid_t>(syscall(SYS_gettid))});
    return static_cast<int>(text.size());
}

int __printf_chk(int flag, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    // The test library calls this function too.
    if (strncmp(format, "[%s:%d] ", 8) != 0) {
        const int written = vprintf(format, arguments);
        va_end(arguments);
        return written;
    }
    const std::string text = formatted(format, arguments);
    va_end(arguments);
    std::lock_guard<std::mutex> lock(outputMutex);
    outputLines.push_back({flag, text, systemLines});
    return static_cast<int>(text.size());
}

}  // extern "C"

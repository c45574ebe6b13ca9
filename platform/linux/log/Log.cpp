// SPDX-License-Identifier: Apache-2.0
// The system log goes to the journal if its socket exists, otherwise to standard error. ORVANE_LOG=stderr or off
// overrides this. Nothing here throws, because C code logs too. No call waits for the log's reader, because the main
// loop logs too. The same is true of what the product prints to standard output.
#include <dlog.h>
#include <signal.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <syslog.h>
#include <unistd.h>

#include <string>

#include "LogQueue.h"

namespace {

using logging::Destination;
using logging::LogQueue;

enum class Sink { JOURNAL, STANDARD_ERROR, OFF };

Sink chooseSink() noexcept {
    const char* chosen = getenv("ORVANE_LOG");
    if (chosen != nullptr && strcmp(chosen, "off") == 0) {
        return Sink::OFF;
    }
    if (chosen != nullptr && strcmp(chosen, "stderr") == 0) {
        return Sink::STANDARD_ERROR;
    }
    return access("/run/systemd/journal/socket", W_OK) == 0 ? Sink::JOURNAL : Sink::STANDARD_ERROR;
}

Sink sink() noexcept {
    static const Sink chosen = chooseSink();
    return chosen;
}

std::string lostLines(unsigned long count) {
    return std::to_string(count) + " log lines were lost, because their reader did not keep up";
}

int journalPriority(log_priority priority) noexcept {
    switch (priority) {
        case DLOG_DEBUG:
            return LOG_DEBUG;
        case DLOG_INFO:
            return LOG_INFO;
        case DLOG_WARN:
            return LOG_WARNING;
        default:
            return LOG_ERR;
    }
}

char letterOf(log_priority priority) noexcept {
    const int index = priority - DLOG_DEBUG;
    return index >= 0 && index < 4 ? "DIWE"[index] : '?';
}

// The journal's native protocol. The journal's library is not an option, because it waits if the journal hangs. A
// message of several lines is preceded by its length.
std::string forJournal(log_priority priority, const char* tag, const std::string& text) {
    std::string message = "MESSAGE";
    if (text.find('\n') == std::string::npos) {
        message += '=';
    } else {
        message += '\n';
        for (unsigned byte = 0; byte < 8; ++byte) {
            message += static_cast<char>(text.size() >> (8 * byte));
        }
    }
    return message + text + "\nPRIORITY=" + std::to_string(journalPriority(priority)) + "\nSYSLOG_IDENTIFIER=" + tag +
           "\n";
}

std::string forStandardError(log_priority priority, const char* tag, const std::string& text) {
    return std::string(1, letterOf(priority)) + '/' + tag + ' ' + text + '\n';
}

// Never destroyed, because detached threads may log until the process exits.
LogQueue& systemLog() {
    static LogQueue& queue =
        sink() == Sink::JOURNAL
            ? *new LogQueue(Destination::JOURNAL,
                            [](unsigned long lost) { return forJournal(DLOG_WARN, "orvane-log", lostLines(lost)); })
            : *new LogQueue(Destination::STANDARD_ERROR, [](unsigned long lost) {
                  return forStandardError(DLOG_WARN, "orvane-log", lostLines(lost));
              });
    return queue;
}

LogQueue& standardOutput() {
    static LogQueue& queue =
        *new LogQueue(Destination::STANDARD_OUTPUT, [](unsigned long lost) { return lostLines(lost) + "\n"; });
    return queue;
}

ssize_t print(void*, const char* text, size_t size) noexcept {
    standardOutput().write({text, size});
    return static_cast<ssize_t>(size);
}

// Standard output is line-buffered, so that a reader of a pipe receives each line immediately.
void replaceStandardOutput() noexcept {
    if (logging::mayBlock(Destination::STANDARD_OUTPUT)) {
        if (FILE* output = fopencookie(nullptr, "w", {nullptr, print, nullptr, nullptr})) {
            stdout = output;
        }
    }
    setvbuf(stdout, nullptr, _IOLBF, 0);
}

void flush() noexcept {
    systemLog().flush();
    standardOutput().flush();
}

void flushBeforeAbort(int) noexcept {
    flush();
}

// Before main() prints and logs.
const bool prepared = [] {
    replaceStandardOutput();
    systemLog();
    standardOutput();
    struct sigaction action {};
    action.sa_handler = flushBeforeAbort;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    sigaction(SIGABRT, &action, nullptr);
    return true;
}();

// After the destructors of static objects, which may log.
[[gnu::destructor]] void flushAtExit() noexcept {
    fflush(stdout);
    flush();
}

}  // namespace

extern "C" int dlog_print(log_priority priority, const char* tag, const char* format, ...) {
    if (sink() == Sink::OFF) {
        return 0;
    }
    char text[4096];  // longer lines are truncated
    va_list arguments;
    va_start(arguments, format);
    const int wanted = vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    if (wanted < 0) {
        return wanted;
    }
    try {
        systemLog().write(sink() == Sink::JOURNAL ? forJournal(priority, tag, text)
                                                  : forStandardError(priority, tag, text));
    } catch (const std::bad_alloc&) {
        return -1;
    }
    return wanted < static_cast<int>(sizeof text) ? wanted : static_cast<int>(sizeof text) - 1;
}

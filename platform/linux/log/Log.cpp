// SPDX-License-Identifier: Apache-2.0
// The system log goes to the journal if its socket exists, otherwise to standard error. ORVANE_LOG=stderr or off
// overrides this. Nothing here throws, because C code logs too.
#include <dlog.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/uio.h>
#include <syslog.h>
#include <systemd/sd-journal.h>
#include <unistd.h>

namespace {

enum class Sink { JOURNAL, STANDARD_ERROR, OFF };

// Also makes standard output line-buffered before main() prints, so that a reader of a pipe receives each line
// immediately.
Sink chooseSink() noexcept {
    setvbuf(stdout, nullptr, _IOLBF, 0);
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

const bool chosenAtStart = (sink(), true);

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

// A single system call writes each line, so that lines of different threads do not mix.
void writeToStandardError(log_priority priority, const char* tag, const char* text, size_t length) noexcept {
    char head[64];
    const int size = snprintf(head, sizeof head, "%c/%s ", letterOf(priority), tag);
    iovec parts[] = {{head, static_cast<size_t>(size) < sizeof head ? size : sizeof head - 1},
                     {const_cast<char*>(text), length},
                     {const_cast<char*>("\n"), 1}};
    if (writev(STDERR_FILENO, parts, 3) < 0) {
        // A failure is ignored, because it cannot be logged.
    }
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
    const size_t length = static_cast<size_t>(wanted) < sizeof text ? wanted : sizeof text - 1;
    if (sink() == Sink::JOURNAL) {
        sd_journal_send("MESSAGE=%s", text, "PRIORITY=%i", journalPriority(priority), "SYSLOG_IDENTIFIER=%s", tag,
                        nullptr);
    } else {
        writeToStandardError(priority, tag, text, length);
    }
    return static_cast<int>(length);
}

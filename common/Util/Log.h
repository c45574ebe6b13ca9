// SPDX-License-Identifier: Apache-2.0
// The program's log. Each call writes its message twice: to the system log with the tag "orvane-da-service", a color,
// and the kernel thread id, file, function, and line; and to standard output with the function and line. Any thread. It
// has no state and takes no locks.
#pragma once

#include <dlog.h>
#include <stdio.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <string>

// glibc's printf for programs built with _FORTIFY_SOURCE. With flag 1, a "%n" in a writable format ends the program.
// The log calls it directly, so that builds without that macro behave the same way.
extern "C" int __printf_chk(int flag, const char* format, ...);

namespace Util {

inline constexpr char LOG_TAG[] = "orvane-da-service";

// The source location that a log line names. A helper that logs for its caller takes one as its last argument, with the
// default `Caller::current()`.
struct Caller {
    const char* file;
    const char* function;
    int line;

    static constexpr Caller current(const char* path = __builtin_FILE(), const char* function = __builtin_FUNCTION(),
                                    int line = __builtin_LINE()) {
        const char* file = path;
        for (const char* at = path; *at != '\0'; ++at) {
            if (*at == '/') {
                file = at + 1;
            }
        }
        return {file, function, line};
    }
};

namespace Log {

// The compiler joins prefix and message into the two formats; the arguments are evaluated once for both.
template <typename... Args>
inline void write(log_priority priority, const char* systemFormat, const char* outputFormat, const Caller& caller,
                  const Args&... args) {
    const int thread = static_cast<int>(syscall(SYS_gettid));
    dlog_print(priority, LOG_TAG, systemFormat, thread, caller.file, caller.function, caller.line, args...);
    __printf_chk(1, outputFormat, caller.function, caller.line, args...);
}

}  // namespace Log
}  // namespace Util

// The branch that never runs lets the compiler check the arguments against the format.
#define ORVANE_LOG(priority, color, caller, format, ...)                                                          \
    do {                                                                                                          \
        if (false) {                                                                                              \
            printf(format, ##__VA_ARGS__);                                                                        \
        }                                                                                                         \
        ::Util::Log::write(priority, color "[%d] %s: %s(%d) > " format "\033[0m", "[%s:%d] " format "\n", caller, \
                           ##__VA_ARGS__);                                                                        \
    } while (false)

#define LOGD(format, ...) LOGD_FOR(::Util::Caller::current(), format, ##__VA_ARGS__)
#define LOGI(format, ...) ORVANE_LOG(DLOG_INFO, "\033[34m", ::Util::Caller::current(), format, ##__VA_ARGS__)
#define LOGW(format, ...) ORVANE_LOG(DLOG_WARN, "\033[33m", ::Util::Caller::current(), format, ##__VA_ARGS__)
#define LOGE(format, ...) LOGE_FOR(::Util::Caller::current(), format, ##__VA_ARGS__)

// Log lines of a helper that logs for its caller.
#define LOGD_FOR(caller, format, ...) ORVANE_LOG(DLOG_DEBUG, "\033[32m", caller, format, ##__VA_ARGS__)
#define LOGE_FOR(caller, format, ...) ORVANE_LOG(DLOG_ERROR, "\033[31m", caller, format, ##__VA_ARGS__)

namespace Util {

// Returns true for 0; otherwise logs the message as an error of the caller.
inline bool succeededOrLogged(int result, const char* message, const Caller& caller = Caller::current()) {
    if (result != 0) {
        LOGE_FOR(caller, "%s", message);
    }
    return result == 0;
}

inline constexpr char PACKAGE_VERSION[] = "0.0.1";
inline constexpr char BUILD_TAG[] = "7.1";

inline void printVersion() {
    const std::string version = std::string(PACKAGE_VERSION) + "-" + BUILD_TAG;
    LOGI("Orvane DA Version: %s", version.c_str());
}

}  // namespace Util

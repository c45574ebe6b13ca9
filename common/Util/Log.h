// The program's log. Each call writes its message twice: to the system log under the tag "orvane-da-service" with
// colour, kernel thread id, file, function and line, and to standard output with function and line. Any thread; no
// state, no lock.
#pragma once

#include <dlog.h>
#include <stdio.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <string>

extern "C" int __printf_chk(int flag, const char* format, ...);

namespace Util {

inline constexpr char LOG_TAG[] = "orvane-da-service";

namespace Log {

// Both formats are joined at build time; the arguments are evaluated once and used for both.
template <typename... Args>
inline void write(log_priority priority, const char* systemFormat, const char* outputFormat, const char* file,
                  const char* function, int line, const Args&... args) {
    const int thread = static_cast<int>(syscall(SYS_gettid));
    dlog_print(priority, LOG_TAG, systemFormat, thread, file, function, line, args...);
    __printf_chk(1, outputFormat, function, line, args...);
}

}  // namespace Log
}  // namespace Util

// The branch never taken lets the compiler check the arguments against the format.
#define ORVANE_LOG(priority, colour, function, line, format, ...)                                          \
    do {                                                                                                   \
        if (false) {                                                                                       \
            printf(format, ##__VA_ARGS__);                                                                 \
        }                                                                                                  \
        ::Util::Log::write(priority, colour "[%d] %s: %s(%d) > " format "\033[0m", "[%s:%d] " format "\n", \
                           __FILE_NAME__, function, line, ##__VA_ARGS__);                                  \
    } while (false)

#define LOGD(format, ...) ORVANE_LOG(DLOG_DEBUG, "\033[32m", __FUNCTION__, __LINE__, format, ##__VA_ARGS__)
#define LOGI(format, ...) ORVANE_LOG(DLOG_INFO, "\033[34m", __FUNCTION__, __LINE__, format, ##__VA_ARGS__)
#define LOGW(format, ...) ORVANE_LOG(DLOG_WARN, "\033[33m", __FUNCTION__, __LINE__, format, ##__VA_ARGS__)
#define LOGE(format, ...) LOGE_AT(__FUNCTION__, __LINE__, format, ##__VA_ARGS__)

// For a helper that logs a failure of its caller, in the same file.
#define LOGE_AT(function, line, format, ...) ORVANE_LOG(DLOG_ERROR, "\033[31m", function, line, format, ##__VA_ARGS__)

namespace Util {

inline constexpr char PACKAGE_VERSION[] = "0.0.1";
inline constexpr char BUILD_TAG[] = "7.1";

inline void printVersion() {
    const std::string version = std::string(PACKAGE_VERSION) + "-" + BUILD_TAG;
    LOGI("Orvane DA Version: %s", version.c_str());
}

}  // namespace Util

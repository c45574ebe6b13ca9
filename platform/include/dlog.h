// SPDX-License-Identifier: Apache-2.0
/* System log of the platform. */
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

typedef enum {
    DLOG_DEBUG = 3,
    DLOG_INFO = 4,
    DLOG_WARN = 5,
    DLOG_ERROR = 6,
} log_priority;

/* Writes one line with a tag. Any thread; does not wait for a reader of the log.
 * Returns the number of bytes written, or a negative error. */
int dlog_print(log_priority priority, const char* tag, const char* format, ...) __attribute__((format(printf, 3, 4)));

#ifdef __cplusplus
}
#endif

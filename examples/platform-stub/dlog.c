/* SPDX-License-Identifier: Apache-2.0 */
/* The log is standard error. */
#include <dlog.h>
#include <stdarg.h>
#include <stdio.h>

int dlog_print(log_priority priority, const char* tag, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    flockfile(stderr);
    fprintf(stderr, "%d %s ", priority, tag);
    const int size = vfprintf(stderr, format, arguments);
    fputc('\n', stderr);
    funlockfile(stderr);
    va_end(arguments);
    return size;
}

// SPDX-License-Identifier: Apache-2.0
#include "sphinx/FatalErrors.h"

#include <sphinxbase/ckd_alloc.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <utility>

#include "sphinx/Decoder.h"
#include "sphinx/Library.h"

namespace sphinx {

namespace {

// The library reports errors only as text, on the calling thread.
thread_local char lastError[512];
thread_local std::jmp_buf* afterFatalError = nullptr;

void keepText(const char* format, va_list arguments) noexcept {
    std::vsnprintf(lastError, sizeof lastError, format, arguments);
    lastError[std::strcspn(lastError, "\n")] = '\0';
}

// The library ends the process after a fatal error when the callback returns.
void keepError(void*, err_lvl_t level, const char* format, ...) noexcept {
    if (level < ERR_ERROR) {
        return;
    }
    va_list arguments;
    va_start(arguments, format);
    keepText(format, arguments);
    va_end(arguments);
    if (afterFatalError != nullptr && level >= ERR_FATAL) {
        std::longjmp(*afterFatalError, 1);
    }
}

}  // namespace

void keepErrors() {
    static std::once_flag once;
    std::call_once(once, [] {
        library().err_set_logfp(nullptr);
        library().err_set_callback(keepError, nullptr);
    });
}

void forgetError() noexcept {
    lastError[0] = '\0';
}

void fail(const std::string& what) {
    throw Error(lastError[0] == '\0' ? what : what + ": " + lastError);
}

std::jmp_buf* continueAt(std::jmp_buf* place) noexcept {
    return std::exchange(afterFatalError, place);
}

// Replaces the library's out-of-memory handler, which ends the process or jumps to one place for all threads.
extern "C" void ckd_fail(char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    keepText(format, arguments);
    va_end(arguments);
    if (afterFatalError == nullptr) {
        std::fprintf(stderr, "the speech library cannot continue: %s\n", lastError);
        std::abort();
    }
    std::longjmp(*afterFatalError, 1);
}

}  // namespace sphinx

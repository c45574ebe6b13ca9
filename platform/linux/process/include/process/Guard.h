// SPDX-License-Identifier: Apache-2.0
// What stands between C and this code: no exception leaves a C function, a callback, or a thread.
#pragma once

#include <new>
#include <type_traits>
#include <utility>

#include "process/Owner.h"

namespace process {

// The codes that a C function returns for an exception.
template <typename Code>
struct Failures {
    Code failure;
    Code outOfMemory;
};

// In a catch block: logs one line with the name and the reason.
void logException(const char* name) noexcept;

// Runs `body` as one Call and returns what it returns. An exception becomes its code and one line in the log, which
// names the C function; Ended becomes the code alone.
template <typename Code, typename Body>
std::invoke_result_t<Body> guarded(const Failures<Code>& failures, const char* function, Body&& body) noexcept {
    try {
        const Call call;
        return std::forward<Body>(body)();
    } catch (const Ended&) {
        return failures.failure;
    } catch (const std::bad_alloc&) {
        logException(function);
        return failures.outOfMemory;
    } catch (...) {
        logException(function);
        return failures.failure;
    }
}

template <typename Code, typename Body>
std::invoke_result_t<Body> guarded(Code failure, const char* function, Body&& body) noexcept {
    return guarded(Failures<Code>{failure, failure}, function, std::forward<Body>(body));
}

// Runs the body of a callback that a C library calls, or of a thread. An exception ends it and becomes one line in the
// log, which contains `name`.
template <typename Body>
void contained(const char* name, Body&& body) noexcept {
    try {
        std::forward<Body>(body)();
    } catch (const Ended&) {
    } catch (...) {
        logException(name);
    }
}

}  // namespace process

// SPDX-License-Identifier: Apache-2.0
// Keeps exceptions from leaving a C function, a callback, or a thread.
#pragma once

#include <new>
#include <type_traits>
#include <utility>

#include "process/Owner.h"

namespace process {

// The codes that a C function returns after an exception.
template <typename Code>
struct Failures {
    Code failure;
    Code outOfMemory;
};

// Call in a catch block. Logs one line with the name and the reason.
void logException(const char* name) noexcept;

// Runs `body` as one Call and returns its result. An exception becomes an error code and one log line with the name of
// the C function; Ended becomes only the code.
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

// Runs the body of a thread, or of a callback from a C library. An exception ends the body and is logged in one line
// with `name`.
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

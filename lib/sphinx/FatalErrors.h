// SPDX-License-Identifier: Apache-2.0
// After a fatal error, such as a lack of memory, the library ends the process or jumps. Therefore every call that may
// allocate memory runs in survived(), including calls that free an object. Private to the wrapper.
#pragma once

#include <csetjmp>
#include <string>

namespace sphinx {

// Call before the first decoder. The library then prints nothing, and its last error becomes part of Error::what().
void keepErrors();
// Forgets the last error of this thread.
void forgetError() noexcept;
// Throws Error with the text and the library's last error on this thread.
[[noreturn]] void fail(const std::string& what);

// Sets where the library's current call on this thread continues after a fatal error. Returns the previous place.
std::jmp_buf* continueAt(std::jmp_buf* place) noexcept;

// Runs a call of the library. Returns false after a fatal error, which leaves the call's objects in an unknown state.
// The jump runs no destructors, so the call must contain only C code.
template <typename Call>
bool survived(const Call& call) {
    std::jmp_buf here;
    std::jmp_buf* const outer = continueAt(&here);
    if (setjmp(here) != 0) {
        continueAt(outer);
        return false;
    }
    call();
    continueAt(outer);
    return true;
}

}  // namespace sphinx

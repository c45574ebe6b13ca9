// SPDX-License-Identifier: Apache-2.0
// The library ends the process or jumps after a fatal error, such as a lack of memory. Every call that may allocate
// memory therefore runs in survived(); freeing an object may do so, too. Private to the wrapper.
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

// Runs a call of the library. False after a fatal error, which leaves the objects of the call in an unknown state. The
// jump runs no destructors, so the call must only contain C.
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

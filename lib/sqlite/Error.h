// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <stdexcept>
#include <string>

namespace sqlite {

// An SQLite error with its message. Running out of memory throws std::bad_alloc instead.
class Error : public std::runtime_error {
public:
    Error(int code, const std::string& text) : std::runtime_error(text), mCode(code) {}

    // Another connection holds the lock.
    bool isBusy() const;
    // The database file or one of its auxiliary files cannot be opened or written.
    bool isAccessRefused() const;

private:
    int mCode;
};

}  // namespace sqlite

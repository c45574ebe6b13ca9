// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <stdexcept>
#include <string>

namespace hub {

// A failure, with a code from kelso_server.h and a message for the log.
class Error : public std::runtime_error {
public:
    Error(int code, const std::string& text) : std::runtime_error(text), mCode(code) {}
    int code() const { return mCode; }

private:
    int mCode;
};

}  // namespace hub

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <stdexcept>
#include <string>

namespace hub {

// What a call of the seam ends with: a code of kelso_server.h and a text for the log.
class Fault : public std::runtime_error {
public:
    Fault(int code, const std::string& text) : std::runtime_error(text), mCode(code) {}
    int code() const { return mCode; }

private:
    int mCode;
};

}  // namespace hub

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <stdexcept>
#include <string>

namespace curl {

enum class Failure {
    UNREACHABLE,  // unknown host, connection refused or broken
    TIMED_OUT,
    NOT_SECURE,  // no TLS, or an untrusted certificate
    BAD_REPLY    // incomplete, too long, or not HTTP
};

// The reason why a request got no complete reply. Running out of memory throws std::bad_alloc instead.
class Error : public std::runtime_error {
public:
    Error(Failure failure, const std::string& text) : std::runtime_error(text), mFailure(failure) {}
    Failure failure() const { return mFailure; }

private:
    Failure mFailure;
};

// Throws the error for a CURLcode unless it is CURLE_OK. `detail` describes the error more precisely; may be empty.
void check(int code, const std::string& detail = {});

}  // namespace curl

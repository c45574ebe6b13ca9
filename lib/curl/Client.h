// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "curl/Handle.h"
#include "curl/HeaderList.h"
#include "curl/Reply.h"

namespace curl {

struct Limits {
    long connectMilliseconds;
    long requestMilliseconds;  // includes connecting
    std::size_t replyBytes;
};

// Sends requests over HTTP and HTTPS, one at a time, and keeps connections open between them. One thread at a time may
// use it. Each request blocks until its reply arrives or a time limit expires. Always checks certificates. Does not
// follow redirects, so that no other host receives the token.
class Client {
public:
    // `authorities`: a PEM file of certificates to trust instead of the system's; empty for the system's.
    Client(const Limits& limits, const std::string& authorities) : mLimits(limits), mAuthorities(authorities) {}

    // Throw Error if no complete reply arrives. A reply with an error status is still a reply.
    Reply get(const std::string& url, const std::string& token);
    Reply post(const std::string& url, const std::string& token, const std::string& json);

private:
    Reply request(const std::string& url, const std::string& token, const std::string* json);
    void setRequest(const std::string& url, const std::string& token);
    void setLimits();
    void setTls();
    void setBody(const std::string& json, HeaderList& headers);

    Limits mLimits;
    std::string mAuthorities;
    Handle mHandle;
};

}  // namespace curl

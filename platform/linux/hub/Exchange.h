// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <exception>
#include <new>
#include <string>

#include "curl/Error.h"
#include "curl/Reply.h"

namespace hub {

// Each throws a hub::Error whose message begins with `what`.
void checkStatus(long status, const std::string& what);
[[noreturn]] void throwNoReply(const curl::Error& error, const std::string& what);
[[noreturn]] void throwBadReply(const std::exception& error, const std::string& what);

// Sends a request and reads its reply. Throws hub::Error with a message that names the request as `what`.
template <typename Send, typename Read>
auto exchange(const std::string& what, Send send, Read read) {
    curl::Reply reply{};
    try {
        reply = send();
    } catch (const curl::Error& error) {
        throwNoReply(error, what);
    }
    checkStatus(reply.status, what);
    try {
        return read(reply.body);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        throwBadReply(error, what);
    }
}

}  // namespace hub

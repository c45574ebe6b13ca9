// SPDX-License-Identifier: Apache-2.0
#include "Exchange.h"

#include <nlohmann/json.hpp>

#include "Error.h"
#include "kelso_server.h"

namespace hub {

namespace {

int codeOf(curl::Failure failure) {
    switch (failure) {
        case curl::Failure::TIMED_OUT:
            return KS_SERVER_ERROR_TIMED_OUT;
        case curl::Failure::NOT_SECURE:
            return KS_SERVER_ERROR_TLS;
        case curl::Failure::BAD_REPLY:
            return KS_SERVER_ERROR_BAD_ANSWER;
        default:
            return KS_SERVER_ERROR_UNREACHABLE;
    }
}

}  // namespace

void checkStatus(long status, const std::string& what) {
    if (!curl::isSuccess(status)) {
        const bool isFailure = status >= 300 && status <= 599;
        throw Error(isFailure ? static_cast<int>(status) : KS_SERVER_ERROR_BAD_ANSWER,
                    what + ": HTTP status " + std::to_string(status));
    }
}

void throwNoReply(const curl::Error& error, const std::string& what) {
    throw Error(codeOf(error.failure()), what + ": " + error.what());
}

// The message of a JSON error quotes the reply, which may contain a token or a name.
void throwBadReply(const std::exception& error, const std::string& what) {
    const bool isSyntax = dynamic_cast<const nlohmann::json::exception*>(&error) != nullptr;
    throw Error(KS_SERVER_ERROR_BAD_ANSWER, what + ": invalid reply: " + (isSyntax ? "it is not JSON" : error.what()));
}

}  // namespace hub

// SPDX-License-Identifier: Apache-2.0
#include "curl/Error.h"

#include <curl/curl.h>

#include <new>

namespace curl {

namespace {

Failure failureOf(CURLcode code) {
    switch (code) {
        case CURLE_OPERATION_TIMEDOUT:
            return Failure::TIMED_OUT;
        case CURLE_SSL_CONNECT_ERROR:
        case CURLE_PEER_FAILED_VERIFICATION:
        case CURLE_SSL_CERTPROBLEM:
        case CURLE_SSL_CIPHER:
        case CURLE_SSL_CACERT_BADFILE:
        case CURLE_SSL_ISSUER_ERROR:
        case CURLE_SSL_ENGINE_NOTFOUND:
        case CURLE_SSL_ENGINE_SETFAILED:
            return Failure::NOT_SECURE;
        case CURLE_WRITE_ERROR:
        case CURLE_UNSUPPORTED_PROTOCOL:
        case CURLE_WEIRD_SERVER_REPLY:
        case CURLE_PARTIAL_FILE:
        case CURLE_BAD_CONTENT_ENCODING:
        case CURLE_HTTP2:
        case CURLE_HTTP2_STREAM:
            return Failure::BAD_REPLY;
        default:
            return Failure::UNREACHABLE;
    }
}

}  // namespace

void check(int code, const std::string& detail) {
    const auto known = static_cast<CURLcode>(code);
    if (known == CURLE_OUT_OF_MEMORY) {
        throw std::bad_alloc();
    }
    if (known != CURLE_OK) {
        throw Error(failureOf(known), detail.empty() ? curl_easy_strerror(known) : detail);
    }
}

}  // namespace curl

// SPDX-License-Identifier: Apache-2.0
// Requests over HTTP and HTTPS, one after the other, over connections that are kept between them. Used by one thread at
// a time; every request blocks until its answer or a limit. Certificates are always checked; an answer that sends
// elsewhere is an answer like others, so that nobody but the asked host ever gets what is sent.
#pragma once

#include <curl/curl.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace curl {

struct Limits {
    long connectMilliseconds;
    long requestMilliseconds;  // the connecting included
    std::size_t answerBytes;
};

struct Answer {
    long status;
    std::string body;  // empty unless the status is a success: no other body is read
};

constexpr bool isSuccess(long status) {
    return status >= 200 && status <= 299;
}

class Error : public std::runtime_error {
public:
    Error(CURLcode code, const std::string& text) : std::runtime_error(text), mCode(code) {}
    CURLcode code() const { return mCode; }

private:
    CURLcode mCode;
};

class Client {
public:
    // `authorities`: a file of certificates to trust instead of the system's; empty for the system's.
    Client(const Limits& limits, const std::string& authorities);
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    // Throw Error when there is no whole answer.
    Answer get(const std::string& url, const std::string& bearer);
    Answer post(const std::string& url, const std::string& bearer, const std::string& json);

private:
    struct Cleanup {
        void operator()(CURL* handle) const noexcept { curl_easy_cleanup(handle); }
    };
    struct FreeHeaders {
        void operator()(curl_slist* list) const noexcept { curl_slist_free_all(list); }
    };
    using Headers = std::unique_ptr<curl_slist, FreeHeaders>;

    Answer request(const std::string& url, const std::string& bearer, const std::string* json);
    void prepare(const std::string& url, const std::string& bearer);
    void preparePost(const std::string& json, Headers& headers);

    Limits mLimits;
    std::string mAuthorities;
    std::unique_ptr<CURL, Cleanup> mHandle;
};

}  // namespace curl

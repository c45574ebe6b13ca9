// SPDX-License-Identifier: Apache-2.0
#include "curl/Client.h"

#include <new>

namespace curl {

namespace {

// Before the first handle; never undone, since another library of the process may use curl too.
void initialise() {
    static const CURLcode code = curl_global_init(CURL_GLOBAL_DEFAULT);
    if (code != CURLE_OK) {
        throw Error(code, curl_easy_strerror(code));
    }
}

// What comes back. Any other count than the given one from its two callbacks ends the transfer with CURLE_WRITE_ERROR.
struct Transfer {
    CURL* handle;
    std::size_t most;
    std::string body;
    bool isTooLong = false;
    bool isNoSuccess = false;  // ended with its head: nobody reads the body, or waits for it
};

long statusOf(CURL* handle) {
    long status = 0;
    curl_easy_getinfo(handle, CURLINFO_RESPONSE_CODE, &status);
    return status;
}

// Line by line; the empty one ends the head, that of an interim answer (1xx) too.
std::size_t onHeadLine(const char* line, std::size_t, std::size_t count, void* data) noexcept {
    auto& transfer = *static_cast<Transfer*>(data);
    const bool isEnd = *line == '\r' || *line == '\n';
    const long status = statusOf(transfer.handle);
    transfer.isNoSuccess = isEnd && status >= 200 && !isSuccess(status);
    return transfer.isNoSuccess ? CURL_WRITEFUNC_ERROR : count;
}

std::size_t onBytes(const char* bytes, std::size_t, std::size_t count, void* data) noexcept {
    auto& transfer = *static_cast<Transfer*>(data);
    try {
        transfer.isTooLong = count > transfer.most - transfer.body.size();
        if (!transfer.isTooLong) {
            transfer.body.append(bytes, count);
            return count;
        }
    } catch (const std::exception&) {
    }
    return CURL_WRITEFUNC_ERROR;
}

// Whatever ends a request, nothing of it is pointed at any more.
class Reset {
public:
    explicit Reset(CURL* handle) : mHandle(handle) {}
    ~Reset() { curl_easy_reset(mHandle); }
    Reset(const Reset&) = delete;
    Reset& operator=(const Reset&) = delete;

private:
    CURL* mHandle;
};

template <typename Value>
void set(CURL* handle, CURLoption option, Value value) {
    const CURLcode code = curl_easy_setopt(handle, option, value);
    if (code == CURLE_OUT_OF_MEMORY) {
        throw std::bad_alloc();
    }
    if (code != CURLE_OK) {
        throw Error(code, curl_easy_strerror(code));
    }
}

}  // namespace

Client::Client(const Limits& limits, const std::string& authorities) : mLimits(limits), mAuthorities(authorities) {
    initialise();
    mHandle.reset(curl_easy_init());
    if (!mHandle) {
        throw std::bad_alloc();
    }
}

Answer Client::get(const std::string& url, const std::string& bearer) {
    return request(url, bearer, nullptr);
}

Answer Client::post(const std::string& url, const std::string& bearer, const std::string& json) {
    return request(url, bearer, &json);
}

Answer Client::request(const std::string& url, const std::string& bearer, const std::string* json) {
    CURL* handle = mHandle.get();
    Transfer transfer{handle, mLimits.answerBytes, {}};
    char reason[CURL_ERROR_SIZE] = "";
    Headers headers;
    const Reset reset(handle);
    prepare(url, bearer);
    if (json != nullptr) {
        preparePost(*json, headers);
    }
    set(handle, CURLOPT_HEADERFUNCTION, onHeadLine);
    set(handle, CURLOPT_HEADERDATA, &transfer);
    set(handle, CURLOPT_WRITEFUNCTION, onBytes);
    set(handle, CURLOPT_WRITEDATA, &transfer);
    set(handle, CURLOPT_ERRORBUFFER, reason);
    const CURLcode code = curl_easy_perform(handle);
    if (transfer.isTooLong) {
        throw Error(code, "more than " + std::to_string(mLimits.answerBytes) + " bytes");
    }
    if (code != CURLE_OK && !transfer.isNoSuccess) {
        throw Error(code, *reason != 0 ? reason : curl_easy_strerror(code));
    }
    return {statusOf(handle), std::move(transfer.body)};
}

void Client::prepare(const std::string& url, const std::string& bearer) {
    CURL* handle = mHandle.get();
    set(handle, CURLOPT_URL, url.c_str());
    set(handle, CURLOPT_PATH_AS_IS, 1L);
    set(handle, CURLOPT_PROTOCOLS_STR, "http,https");
    set(handle, CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);  // a proxy's are not the answer's
    set(handle, CURLOPT_NOSIGNAL, 1L);
    set(handle, CURLOPT_QUICK_EXIT, 1L);  // a limit is not stretched by a name server that keeps silent
    set(handle, CURLOPT_CONNECTTIMEOUT_MS, mLimits.connectMilliseconds);
    set(handle, CURLOPT_TIMEOUT_MS, mLimits.requestMilliseconds);
    set(handle, CURLOPT_SSL_VERIFYPEER, 1L);
    set(handle, CURLOPT_SSL_VERIFYHOST, 2L);
    set(handle, CURLOPT_SSLVERSION, CURL_SSLVERSION_TLSv1_2);
    if (!mAuthorities.empty()) {
        set(handle, CURLOPT_CAINFO, mAuthorities.c_str());
        set(handle, CURLOPT_CAPATH, static_cast<const char*>(nullptr));
    }
    set(handle, CURLOPT_HTTPAUTH, CURLAUTH_BEARER);
    set(handle, CURLOPT_XOAUTH2_BEARER, bearer.c_str());
}

void Client::preparePost(const std::string& json, Headers& headers) {
    headers.reset(curl_slist_append(nullptr, "Content-Type: application/json"));
    if (!headers) {
        throw std::bad_alloc();
    }
    set(mHandle.get(), CURLOPT_HTTPHEADER, headers.get());
    set(mHandle.get(), CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(json.size()));
    set(mHandle.get(), CURLOPT_COPYPOSTFIELDS, json.c_str());
}

}  // namespace curl

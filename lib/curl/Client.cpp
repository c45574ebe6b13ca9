// SPDX-License-Identifier: Apache-2.0
#include "curl/Client.h"

#include "curl/Transfer.h"

namespace curl {

namespace {

// The handle's options point to data of the request, so they are reset when the request ends.
class Reset {
public:
    explicit Reset(Handle& handle) : mHandle(handle) {}
    ~Reset() { mHandle.reset(); }
    Reset(const Reset&) = delete;
    Reset& operator=(const Reset&) = delete;

private:
    Handle& mHandle;
};

}  // namespace

Reply Client::get(const std::string& url, const std::string& token) {
    return request(url, token, nullptr);
}

Reply Client::post(const std::string& url, const std::string& token, const std::string& json) {
    return request(url, token, &json);
}

Reply Client::request(const std::string& url, const std::string& token, const std::string* json) {
    HeaderList headers;
    Transfer transfer(mHandle, mLimits.replyBytes);
    const Reset reset(mHandle);
    setRequest(url, token);
    setLimits();
    setTls();
    if (json != nullptr) {
        setBody(*json, headers);
    }
    return transfer.run();
}

void Client::setRequest(const std::string& url, const std::string& token) {
    mHandle.set(CURLOPT_URL, url.c_str());
    mHandle.set(CURLOPT_PATH_AS_IS, 1L);
    mHandle.set(CURLOPT_PROTOCOLS_STR, "http,https");
    mHandle.set(CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);  // a proxy's headers are not part of the reply
    mHandle.set(CURLOPT_HTTPAUTH, CURLAUTH_BEARER);
    mHandle.set(CURLOPT_XOAUTH2_BEARER, token.c_str());
}

void Client::setLimits() {
    mHandle.set(CURLOPT_NOSIGNAL, 1L);
    mHandle.set(CURLOPT_QUICK_EXIT, 1L);  // do not wait for the resolver's thread, which could exceed the time limits
    mHandle.set(CURLOPT_CONNECTTIMEOUT_MS, mLimits.connectMilliseconds);
    mHandle.set(CURLOPT_TIMEOUT_MS, mLimits.requestMilliseconds);
}

void Client::setTls() {
    mHandle.set(CURLOPT_SSL_VERIFYPEER, 1L);
    mHandle.set(CURLOPT_SSL_VERIFYHOST, 2L);
    mHandle.set(CURLOPT_SSLVERSION, CURL_SSLVERSION_TLSv1_2);
    if (!mAuthorities.empty()) {
        mHandle.set(CURLOPT_CAINFO, mAuthorities.c_str());
        mHandle.set(CURLOPT_CAPATH, static_cast<const char*>(nullptr));
    }
}

void Client::setBody(const std::string& json, HeaderList& headers) {
    headers.append("Content-Type: application/json");
    mHandle.set(CURLOPT_HTTPHEADER, headers.get());
    mHandle.set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(json.size()));
    mHandle.set(CURLOPT_COPYPOSTFIELDS, json.c_str());
}

}  // namespace curl

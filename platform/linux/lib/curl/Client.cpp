#include "lib/curl/Client.h"

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

struct Body {
    std::string text;
    std::size_t most;
    bool isTooLong = false;
};

// Any other count than the given one ends the transfer with CURLE_WRITE_ERROR.
std::size_t onBytes(const char* bytes, std::size_t, std::size_t count, void* data) noexcept {
    auto& body = *static_cast<Body*>(data);
    try {
        body.isTooLong = count > body.most - body.text.size();
        if (!body.isTooLong) {
            body.text.append(bytes, count);
            return count;
        }
    } catch (const std::exception&) {
    }
    return CURL_WRITEFUNC_ERROR;
}

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
    Body body{{}, mLimits.answerBytes};
    char reason[CURL_ERROR_SIZE] = "";
    Headers headers;
    prepare(url, bearer);
    if (json != nullptr) {
        preparePost(*json, headers);
    }
    set(mHandle.get(), CURLOPT_WRITEFUNCTION, onBytes);
    set(mHandle.get(), CURLOPT_WRITEDATA, &body);
    set(mHandle.get(), CURLOPT_ERRORBUFFER, reason);
    const CURLcode code = curl_easy_perform(mHandle.get());
    Answer answer{0, std::move(body.text)};
    curl_easy_getinfo(mHandle.get(), CURLINFO_RESPONSE_CODE, &answer.status);
    curl_easy_reset(mHandle.get());  // nothing of this request is pointed at any more
    if (body.isTooLong) {
        throw Error(code, "more than " + std::to_string(mLimits.answerBytes) + " bytes");
    }
    if (code != CURLE_OK) {
        throw Error(code, *reason != 0 ? reason : curl_easy_strerror(code));
    }
    return answer;
}

void Client::prepare(const std::string& url, const std::string& bearer) {
    CURL* handle = mHandle.get();
    set(handle, CURLOPT_URL, url.c_str());
    set(handle, CURLOPT_PATH_AS_IS, 1L);
    set(handle, CURLOPT_PROTOCOLS_STR, "http,https");
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

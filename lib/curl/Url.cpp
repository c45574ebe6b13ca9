// SPDX-License-Identifier: Apache-2.0
#include "curl/Url.h"

#include <arpa/inet.h>
#include <curl/curl.h>
#include <netinet/in.h>

#include <new>
#include <stdexcept>

namespace curl {

namespace {

struct Free {
    void operator()(char* text) const noexcept { curl_free(text); }
};
using Text = std::unique_ptr<char, Free>;

}  // namespace

Url::Url(const std::string& text) : mUrl(curl_url()) {
    if (!mUrl) {
        throw std::bad_alloc();
    }
    if (curl_url_set(mUrl.get(), CURLUPART_URL, text.c_str(), 0) != CURLUE_OK) {
        throw std::invalid_argument("not a valid address");
    }
    const std::string scheme = part(CURLUPART_SCHEME);
    if (scheme != "http" && scheme != "https") {
        throw std::invalid_argument("not an http or https address");
    }
    for (const CURLUPart unwanted : {CURLUPART_USER, CURLUPART_PASSWORD, CURLUPART_QUERY, CURLUPART_FRAGMENT}) {
        if (!part(unwanted).empty()) {
            throw std::invalid_argument("not limited to scheme, host, port, and path");
        }
    }
}

std::string Url::base() const {
    std::string base = part(CURLUPART_URL);
    base.erase(base.find_last_not_of('/') + 1);
    return base;
}

bool Url::isSecure() const {
    return part(CURLUPART_SCHEME) == "https";
}

bool Url::isLoopback() const {
    const std::string host = part(CURLUPART_HOST);
    in_addr address{};  // the host name 127.example is not an address in 127.0.0.0/8
    return host == "localhost" || host == "[::1]" ||
           (inet_pton(AF_INET, host.c_str(), &address) == 1 && ntohl(address.s_addr) >> 24 == IN_LOOPBACKNET);
}

// Empty if the address does not have this part.
std::string Url::part(int which) const {
    char* text = nullptr;
    const bool found = curl_url_get(mUrl.get(), static_cast<CURLUPart>(which), &text, 0) == CURLUE_OK;
    const Text owned(found ? text : nullptr);
    return owned ? owned.get() : "";
}

void Url::Cleanup::operator()(Curl_URL* url) const noexcept {
    curl_url_cleanup(url);
}

std::string escaped(const std::string& text) {
    const Text made(curl_easy_escape(nullptr, text.data(), static_cast<int>(text.size())));
    if (!made) {
        throw std::bad_alloc();
    }
    return made.get();
}

}  // namespace curl

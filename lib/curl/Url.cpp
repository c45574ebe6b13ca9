// SPDX-License-Identifier: Apache-2.0
#include "curl/Url.h"

#include <arpa/inet.h>
#include <curl/curl.h>
#include <netinet/in.h>

#include <memory>
#include <new>
#include <stdexcept>

namespace curl {

namespace {

struct Free {
    void operator()(CURLU* url) const noexcept { curl_url_cleanup(url); }
    void operator()(char* text) const noexcept { curl_free(text); }
};
using Text = std::unique_ptr<char, Free>;
using Url = std::unique_ptr<CURLU, Free>;

Url parse(const std::string& text) {
    Url url(curl_url());
    if (!url) {
        throw std::bad_alloc();
    }
    if (curl_url_set(url.get(), CURLUPART_URL, text.c_str(), 0) != CURLUE_OK) {
        throw std::invalid_argument("not an address");
    }
    return url;
}

std::string part(const Url& url, CURLUPart which) {
    char* text = nullptr;
    const Text owned(curl_url_get(url.get(), which, &text, 0) == CURLUE_OK ? text : nullptr);
    return owned ? owned.get() : "";
}

}  // namespace

std::string baseOf(const std::string& address) {
    const Url url = parse(address);
    const std::string scheme = part(url, CURLUPART_SCHEME);
    if (scheme != "http" && scheme != "https") {
        throw std::invalid_argument("neither http nor https");
    }
    for (const CURLUPart unwanted : {CURLUPART_USER, CURLUPART_PASSWORD, CURLUPART_QUERY, CURLUPART_FRAGMENT}) {
        if (!part(url, unwanted).empty()) {
            throw std::invalid_argument("more than scheme, host, port and path");
        }
    }
    std::string base = part(url, CURLUPART_URL);
    base.erase(base.find_last_not_of('/') + 1);
    return base;
}

bool isSecure(const std::string& url) {
    return part(parse(url), CURLUPART_SCHEME) == "https";
}

bool isLoopback(const std::string& url) {
    const std::string host = part(parse(url), CURLUPART_HOST);
    in_addr address{};  // a name may begin with 127. too
    return host == "localhost" || host == "[::1]" ||
           (inet_pton(AF_INET, host.c_str(), &address) == 1 && ntohl(address.s_addr) >> 24 == IN_LOOPBACKNET);
}

std::string escaped(const std::string& text) {
    const Text made(curl_easy_escape(nullptr, text.data(), static_cast<int>(text.size())));
    if (!made) {
        throw std::bad_alloc();
    }
    return made.get();
}

}  // namespace curl

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>

struct Curl_URL;

namespace curl {

// A parsed address, for http or https.
class Url {
public:
    // Throws std::invalid_argument unless it is an http or https address with a host and without a user name, a query,
    // and a fragment.
    explicit Url(const std::string& text);

    // The address without a slash at its end.
    std::string base() const;
    bool isSecure() const;
    // The host is this machine.
    bool isLoopback() const;

private:
    struct Cleanup {
        void operator()(Curl_URL* url) const noexcept;
    };
    std::string part(int which) const;

    std::unique_ptr<Curl_URL, Cleanup> mUrl;
};

// Percent-escapes a text as one segment of a path.
std::string escaped(const std::string& text);

}  // namespace curl

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>

struct Curl_URL;

namespace curl {

// A parsed address, for http or https.
class Url {
public:
    // Throws std::invalid_argument unless the text is an http or https address with a host and without a user name,
    // query, or fragment.
    explicit Url(const std::string& text);

    // The address without a trailing slash.
    std::string base() const;
    bool isSecure() const;
    // Whether the host is the local machine.
    bool isLoopback() const;

private:
    struct Cleanup {
        void operator()(Curl_URL* url) const noexcept;
    };
    std::string part(int which) const;

    std::unique_ptr<Curl_URL, Cleanup> mUrl;
};

// Percent-encodes a string as one segment of a path.
std::string escaped(const std::string& text);

}  // namespace curl

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <curl/curl.h>

#include <memory>

#include "curl/Error.h"

namespace curl {

// An easy handle and its open connections. One thread at a time may use it.
class Handle {
public:
    Handle();

    template <typename Value>
    void set(CURLoption option, Value value) {
        check(curl_easy_setopt(mHandle.get(), option, value));
    }
    // Blocks until the transfer ends.
    CURLcode perform() noexcept { return curl_easy_perform(mHandle.get()); }
    // The status of the last reply; 0 without a reply.
    long status() const noexcept;
    // Resets all options but keeps the connections.
    void reset() noexcept { curl_easy_reset(mHandle.get()); }

private:
    struct Cleanup {
        void operator()(CURL* handle) const noexcept { curl_easy_cleanup(handle); }
    };
    std::unique_ptr<CURL, Cleanup> mHandle;
};

}  // namespace curl

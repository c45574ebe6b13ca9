// SPDX-License-Identifier: Apache-2.0
#include "curl/Handle.h"

#include <new>

namespace curl {

namespace {

// Must run before the first handle is created. Never cleaned up, because another library in the process may also use
// curl.
void initialize() {
    static const CURLcode code = curl_global_init(CURL_GLOBAL_DEFAULT);
    check(code);
}

}  // namespace

Handle::Handle() {
    initialize();
    mHandle.reset(curl_easy_init());
    if (!mHandle) {
        throw std::bad_alloc();
    }
}

long Handle::status() const noexcept {
    long status = 0;
    curl_easy_getinfo(mHandle.get(), CURLINFO_RESPONSE_CODE, &status);
    return status;
}

}  // namespace curl

// SPDX-License-Identifier: Apache-2.0
#include "curl/Transfer.h"

#include <exception>

namespace curl {

// curl calls this for each header line. An empty line ends the headers, including those of an interim reply (status
// 1xx).
std::size_t Transfer::onHeadLine(const char* line, std::size_t, std::size_t count, void* transfer) noexcept {
    auto& self = *static_cast<Transfer*>(transfer);
    const bool isEnd = *line == '\r' || *line == '\n';
    const long status = self.mHandle.status();
    if (isEnd && status >= 200) {
        self.mHasBody = isSuccess(status);
        self.mIsStopped = !self.mHasBody;
    }
    return self.mIsStopped ? CURL_WRITEFUNC_ERROR : count;
}

std::size_t Transfer::onBody(const char* bytes, std::size_t, std::size_t count, void* transfer) noexcept {
    auto& self = *static_cast<Transfer*>(transfer);
    try {
        self.mIsTooLong = count > self.mMaximumBytes - self.mBody.size();
        if (!self.mIsTooLong) {
            self.mBody.append(bytes, count);
            return count;
        }
    } catch (const std::exception&) {
        // Out of memory: the transfer fails.
    }
    return CURL_WRITEFUNC_ERROR;
}

Reply Transfer::run() {
    mHandle.set(CURLOPT_HEADERFUNCTION, onHeadLine);
    mHandle.set(CURLOPT_HEADERDATA, this);
    mHandle.set(CURLOPT_WRITEFUNCTION, onBody);
    mHandle.set(CURLOPT_WRITEDATA, this);
    mHandle.set(CURLOPT_ERRORBUFFER, mDetail);
    check(mHandle.perform());
    return {mHandle.status(), std::move(mBody)};
}

void Transfer::check(CURLcode code) const {
    if (mIsTooLong) {
        throw Error(Failure::BAD_REPLY, "more than " + std::to_string(mMaximumBytes) + " bytes");
    }
    // A connection that breaks within the body leaves an incomplete reply. If TLS ends without its closing message,
    // newer versions of curl report this error, and older ones report the end of the body.
    if (code == CURLE_RECV_ERROR && mHasBody) {
        throw Error(Failure::BAD_REPLY, std::string("the reply breaks off: ") + mDetail);
    }
    if (!mIsStopped) {
        curl::check(code, mDetail);
    }
}

}  // namespace curl

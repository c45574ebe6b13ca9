// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "curl/Handle.h"
#include "curl/Reply.h"

namespace curl {

// One transfer: sends the request that the handle's options describe, and receives the reply.
class Transfer {
public:
    // A body of more than `maximumBytes` is a bad reply.
    Transfer(Handle& handle, std::size_t maximumBytes) : mHandle(handle), mMaximumBytes(maximumBytes) {}
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;

    // Blocks until the reply is complete. Does not wait for the body if the status is not a success. Throws Error.
    Reply run();

private:
    static std::size_t onHeadLine(const char* line, std::size_t, std::size_t count, void* transfer) noexcept;
    static std::size_t onBody(const char* bytes, std::size_t, std::size_t count, void* transfer) noexcept;
    void check(CURLcode code) const;

    Handle& mHandle;
    std::size_t mMaximumBytes;
    std::string mBody;
    bool mHasBody = false;    // the headers are complete and report success
    bool mIsStopped = false;  // the headers are complete and report an error
    bool mIsTooLong = false;
    char mDetail[CURL_ERROR_SIZE] = "";  // the error's text
};

}  // namespace curl

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace curl {

struct Reply {
    long status;
    std::string body;  // empty unless the status is a success
};

constexpr bool isSuccess(long status) {
    return status >= 200 && status <= 299;
}

}  // namespace curl

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <string>

namespace hub {

// Something, and nothing of it would end or split the line of a request.
inline bool isPlainText(const std::string& text) {
    const auto control = [](unsigned char letter) { return letter < ' ' || letter == 0x7f; };
    return !text.empty() && std::none_of(text.begin(), text.end(), control);
}

}  // namespace hub

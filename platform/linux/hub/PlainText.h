// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <string>

namespace hub {

// Not empty and without control characters, which could end or split a line of a request.
inline bool isPlainText(const std::string& text) {
    const auto isControl = [](unsigned char letter) { return letter < ' ' || letter == 0x7f; };
    return !text.empty() && std::none_of(text.begin(), text.end(), isControl);
}

}  // namespace hub

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <string>

namespace hub {

// Whether the text is not empty and has no control characters, which could break the lines of a request.
inline bool isPlainText(const std::string& text) {
    const auto isControl = [](unsigned char letter) { return letter < ' ' || letter == 0x7f; };
    return !text.empty() && std::none_of(text.begin(), text.end(), isControl);
}

}  // namespace hub

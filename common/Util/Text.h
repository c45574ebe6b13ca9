// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <stdlib.h>

#include <memory>
#include <string>

namespace Util {

struct Free {
    void operator()(void* memory) const noexcept { free(memory); }
};
// A text that a platform call gave away.
using PlatformText = std::unique_ptr<char, Free>;

inline std::string copied(const PlatformText& text) {
    return text ? text.get() : "";
}

// Without leading and trailing space, tab, carriage return, line feed and vertical tab.
inline std::string trimmed(const std::string& text) {
    static constexpr char BLANKS[] = " \t\r\n\v";
    const size_t last = text.find_last_not_of(BLANKS);
    if (last == std::string::npos) {
        return "";
    }
    const size_t first = text.find_first_not_of(BLANKS);
    return text.substr(first, last - first + 1);
}

// The trimmed text that a getter of the NLU result parser gives for `part`; empty when there is none, or no part.
template <typename Part>
std::string getTrimmedStringFromVRP(int (*getter)(Part*, char**), Part* part) {
    if (part == nullptr) {
        return "";
    }
    char* text = nullptr;
    getter(part, &text);
    return trimmed(copied(PlatformText(text)));
}

}  // namespace Util

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <stdlib.h>

#include <memory>
#include <string>

namespace Util {

struct Free {
    void operator()(void* memory) const noexcept { free(memory); }
};
// A string that a platform call returned and that the caller owns.
using PlatformText = std::unique_ptr<char, Free>;

inline std::string copied(const PlatformText& text) {
    return text ? text.get() : "";
}

// Removes leading and trailing spaces, tabs, carriage returns, line feeds, and vertical tabs.
inline std::string trimmed(const std::string& text) {
    static constexpr char BLANKS[] = " \t\r\n\v";
    const size_t last = text.find_last_not_of(BLANKS);
    if (last == std::string::npos) {
        return "";
    }
    const size_t first = text.find_first_not_of(BLANKS);
    return text.substr(first, last - first + 1);
}

// The trimmed string that a getter of the NLU result parser returns for `part`. Empty if the string is absent or `part`
// is null.
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

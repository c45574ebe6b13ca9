// SPDX-License-Identifier: Apache-2.0
#include "FieldValue.h"

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace voice {

namespace {

// Returns the list's name, or an empty text if the value does not begin with a list.
std::string listOf(const std::string& value) {
    const std::size_t end = value.find('>');
    return value.front() != '<' || end == std::string::npos ? "" : value.substr(1, end - 1);
}

// The divisor after "<list>"; 1 without one, 0 if the text there is not a divisor.
int divisorOf(const std::string& value) {
    const std::string rest = value.substr(value.find('>') + 1);
    int divisor = 1;
    char excess = 0;
    return rest.empty()                                                                   ? 1
           : std::sscanf(rest.c_str(), " / %5d%c", &divisor, &excess) == 1 && divisor > 0 ? divisor
                                                                                          : 0;
}

// A number with at most two decimals: "90" or "1.5".
std::string quotient(const std::string& number, int divisor) {
    char text[64];
    std::snprintf(text, sizeof(text), "%.2f", std::strtod(number.c_str(), nullptr) / divisor);
    std::string digits = text;
    digits.erase(digits.find_last_not_of('0') + 1);
    return digits.back() == '.' ? digits.substr(0, digits.size() - 1) : digits;
}

std::string said(const std::string& slot, const SlotValues& slots) {
    const auto found = slots.find(slot);
    return found == slots.end() ? "" : found->second;
}

}  // namespace

void checkFieldValue(const std::string& value) {
    if (!listOf(value).empty() && divisorOf(value) == 0) {
        throw std::invalid_argument("expected a number above 0: " + value);
    }
}

std::string filledIn(const std::string& value, const SlotValues& slots) {
    const std::string list = listOf(value);
    if (list.empty()) {
        return value == "*" ? said(value, slots) : value;
    }
    const std::string name = said(list, slots);
    const int divisor = divisorOf(value);
    return divisor == 1 || name.empty() ? name : quotient(name, divisor);
}

}  // namespace voice

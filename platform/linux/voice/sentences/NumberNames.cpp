// SPDX-License-Identifier: Apache-2.0
#include "BuiltInLists.h"

namespace voice {

namespace {

constexpr const char* kSmall[] = {"zero",     "one",     "two",     "three",     "four",     "five",    "six",
                                  "seven",    "eight",   "nine",    "ten",       "eleven",   "twelve",  "thirteen",
                                  "fourteen", "fifteen", "sixteen", "seventeen", "eighteen", "nineteen"};
constexpr const char* kTens[] = {"", "", "twenty", "thirty", "forty", "fifty", "sixty", "seventy", "eighty", "ninety"};
constexpr int kLargest = 999;

std::string belowHundred(int number) {
    if (number < 20) {
        return kSmall[number];
    }
    const std::string tens = kTens[number / 10];
    return number % 10 == 0 ? tens : tens + " " + kSmall[number % 10];
}

}  // namespace

std::string spokenNumber(int number) {
    if (number < 100) {
        return belowHundred(number);
    }
    const std::string hundred = number < 200 ? "(one | a)" : kSmall[number / 100];
    const std::string rest = number % 100 == 0 ? "" : " [and] " + belowHundred(number % 100);
    return hundred + " hundred" + rest;
}

std::vector<Named> numberNames() {
    std::vector<Named> names;
    for (int number = 0; number <= kLargest; ++number) {
        names.push_back({std::to_string(number), parseSentence(spokenNumber(number))});
    }
    return names;
}

}  // namespace voice

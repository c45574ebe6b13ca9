// SPDX-License-Identifier: Apache-2.0
// The lists that every sentence file may refer to without defining them: number, time, and duration.
#pragma once

#include <string>
#include <vector>

#include "voice/Sentence.h"

namespace voice {

bool isBuiltInList(const std::string& list);

// The names of the list. Takes some ten milliseconds.
std::vector<Named> builtInNames(const std::string& list);

// 0 to 999, as a sentence: "(one | a) hundred [and] five".
std::string spokenNumber(int number);

// 0 to 999; the value has digits only.
std::vector<Named> numberNames();

// The times of a day. The value is HH:MM.
std::vector<Named> timeNames();

// One second to 24 hours. The value is the number of seconds.
std::vector<Named> durationNames();

}  // namespace voice

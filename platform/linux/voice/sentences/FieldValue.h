// SPDX-License-Identifier: Apache-2.0
// The value of a field in the sentence file: a text, "*", "<list>", or "<list> / divisor".
#pragma once

#include <string>

#include "voice/Sentence.h"

namespace voice {

// Throws std::invalid_argument if the divisor is not a positive number.
void checkFieldValue(const std::string& value);

// Replaces "<list>" and "*" with the person's words. Empty if the person did not say them.
std::string filledIn(const std::string& value, const SlotValues& slots);

}  // namespace voice

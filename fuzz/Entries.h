// SPDX-License-Identifier: Apache-2.0
// What comes from outside, one entry for each kind. An entry takes any bytes; it must neither crash, nor throw, nor
// take long, and aborts when the outcome breaks a promise. libFuzzer calls it with what it makes up, tests/fuzz with
// what is kept in fuzz/corpus and fuzz/regressions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace fuzz {

void commands(std::string_view bytes);
void hubAnswer(std::string_view bytes);
void message(std::string_view bytes);
void nluResult(std::string_view bytes);
void recording(std::string_view bytes);
void wakeupConfig(std::string_view bytes);

// Ends the process when a promise is broken.
void require(bool kept, const char* promise);

}  // namespace fuzz

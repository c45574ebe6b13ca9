// SPDX-License-Identifier: Apache-2.0
// One entry for each kind of data from outside. An entry accepts any bytes. It must not crash, throw, or take long, and
// it aborts when a check fails. libFuzzer calls it with generated inputs, and tests/fuzz with the inputs in fuzz/corpus
// and fuzz/regressions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace fuzz {

void busArguments(std::string_view bytes);
void commands(std::string_view bytes);
void hubAnswer(std::string_view bytes);
void message(std::string_view bytes);
void nluResult(std::string_view bytes);
void recording(std::string_view bytes);
void wakeupConfig(std::string_view bytes);

// Aborts the process when a check fails.
void require(bool kept, const char* promise);

}  // namespace fuzz

// SPDX-License-Identifier: Apache-2.0
// A fuzzer of the entry FUZZ_ENTRY.
#include "Entries.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::FUZZ_ENTRY({reinterpret_cast<const char*>(data), size});
    return 0;
}

// SPDX-License-Identifier: Apache-2.0
#include <cstdio>
#include <cstdlib>

#include "Entries.h"

namespace fuzz {

void require(bool kept, const char* promise) {
    if (!kept) {
        std::fprintf(stderr, "broken: %s\n", promise);
        std::abort();
    }
}

}  // namespace fuzz

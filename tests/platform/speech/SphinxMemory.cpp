// SPDX-License-Identifier: Apache-2.0
#include "SphinxMemory.h"

#include <sphinxbase/ckd_alloc.h>

#include <atomic>
#include <cstdlib>

namespace {

std::atomic<long> left{-1};
std::atomic<bool> out{false};

char message[] = "the test has no more memory";

}  // namespace

void sphinxmemory::limit(long blocks) {
    out = false;
    left = blocks;
}

bool sphinxmemory::isOut() {
    return out;
}

extern "C" void* __ckd_calloc__(size_t count, size_t size, const char*, int) {
    if (left == 0) {
        out = true;
        ckd_fail(message);
    }
    if (left > 0) {
        --left;
    }
    return std::calloc(count, size);
}

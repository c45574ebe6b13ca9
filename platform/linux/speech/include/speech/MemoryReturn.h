// SPDX-License-Identifier: Apache-2.0
// Returns freed memory to the system. Models and utterances make many small allocations, often in the heap of one
// thread. Without this, the heap would keep their pages: a hundred megabytes for each language change, and tens of
// megabytes for each utterance.
#pragma once

#include <malloc.h>

namespace speech {

// Make it the first member of a class that owns models, or the first variable of a function that uses them, so that it
// is destroyed after them.
struct MemoryReturn {
    ~MemoryReturn() { malloc_trim(0); }
};

}  // namespace speech

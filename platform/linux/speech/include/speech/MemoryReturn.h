// SPDX-License-Identifier: Apache-2.0
// Gives what was freed back to the system. Models and utterances are many small pieces, often of a thread of their own,
// whose share of the heap would otherwise keep their pages: a hundred megabytes for each change of the language, tens
// for an utterance.
#pragma once

#include <malloc.h>

namespace speech {

// The first member of what owns models, or the first variable of their work, so that it is destroyed after them.
struct MemoryReturn {
    ~MemoryReturn() { malloc_trim(0); }
};

}  // namespace speech

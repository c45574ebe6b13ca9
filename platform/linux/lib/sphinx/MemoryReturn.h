// Gives what was freed back to the system. A model is read in many small pieces, often on a thread of its own, whose
// share of the heap would otherwise keep their pages: a hundred megabytes for each change of the language.
#pragma once

#include <malloc.h>

namespace sphinx {

// The first member of what owns models, so that it is destroyed after them.
struct MemoryReturn {
    ~MemoryReturn() { malloc_trim(0); }
};

}  // namespace sphinx

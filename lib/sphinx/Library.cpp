// SPDX-License-Identifier: Apache-2.0
#include "sphinx/Library.h"

#include <dlfcn.h>

#include <cstdlib>
#include <string>

#include "sphinx/Decoder.h"

namespace sphinx {

namespace {

constexpr const char* kName = "libpocketsphinx.so.3";

// OpenBLAS reads this when it is loaded. Nothing here calls BLAS, and its idle threads spin. Set before main, because
// another thread may read the environment later.
[[gnu::constructor]] void keepBlasOnOneThread() {
    setenv("OPENBLAS_NUM_THREADS", "1", 0);
}

template <typename Function>
void find(void* library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(dlsym(library, name));
    if (!function) {
        throw Error(std::string(kName) + " has no function " + name);
    }
}

// The library stays loaded until the process ends.
Library load() {
    void* handle = dlopen(kName, RTLD_NOW | RTLD_LOCAL);
    if (!handle) {
        throw Error(dlerror());
    }
    Library library{};
#define ORVANE_SPHINX_FIND(name) find(handle, #name, library.name);
    ORVANE_SPHINX_FUNCTIONS(ORVANE_SPHINX_FIND)
#undef ORVANE_SPHINX_FIND
    return library;
}

}  // namespace

const Library& library() {
    static const Library loaded = load();
    return loaded;
}

}  // namespace sphinx

// SPDX-License-Identifier: Apache-2.0
// The data root: ORVANE_DATA_ROOT, or else the nearest share/orvane-da above the program. That is the installed
// directory or, in the build tree, a link to the source tree's data.
#include <stdlib.h>
#include <tzplatform_config.h>

#include <string>

#include "process/Guard.h"
#include "process/Installation.h"

namespace {

std::string findDataRoot() {
    if (const char* chosen = getenv("ORVANE_DATA_ROOT"); chosen != nullptr && *chosen != 0) {
        return chosen;
    }
    return process::installed("orvane-da");
}

const std::string& dataRoot() {
    static const std::string root = findDataRoot();
    return root;
}

}  // namespace

extern "C" const char* tzplatform_mkpath(enum tzplatform_variable id, const char* path) {
    thread_local std::string made;
    const bool found = process::guarded(false, __func__, [&] {
        if (id != TZPLATFORM_DATA_ROOT || path == nullptr) {
            return false;
        }
        made = dataRoot() + "/" + path;
        return true;
    });
    // The text outlives the call. NOLINTNEXTLINE(clang-analyzer-cplusplus.InnerPointer)
    return found ? made.c_str() : nullptr;
}

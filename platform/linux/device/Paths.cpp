// SPDX-License-Identifier: Apache-2.0
// The data root: ORVANE_DATA_ROOT, or else the nearest share/orvane-da above the program. That is the installed
// directory or, in the build tree, a link to the source tree's data.
#include <stdlib.h>
#include <tzplatform_config.h>

#include <filesystem>
#include <string>

#include "process/Guard.h"

namespace {

namespace fs = std::filesystem;

std::string findDataRoot() {
    if (const char* chosen = getenv("ORVANE_DATA_ROOT"); chosen != nullptr && *chosen != 0) {
        return chosen;
    }
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    const fs::path installed = program.parent_path().parent_path() / "share" / "orvane-da";
    for (fs::path folder = program.parent_path(); folder.has_relative_path();) {
        folder = folder.parent_path();
        if (fs::is_directory(folder / "share" / "orvane-da", error)) {
            return folder / "share" / "orvane-da";
        }
    }
    return installed;
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

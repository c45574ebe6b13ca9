// SPDX-License-Identifier: Apache-2.0
// The data root: ORVANE_DATA_ROOT, else share/orvane-da beside the program's own folder, else the source tree's.
#include <stdlib.h>
#include <tzplatform_config.h>

#include <filesystem>
#include <string>

namespace {

namespace fs = std::filesystem;

std::string findDataRoot() {
    if (const char* chosen = getenv("ORVANE_DATA_ROOT"); chosen != nullptr && *chosen != 0) {
        return chosen;
    }
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    const fs::path installed = program.parent_path().parent_path() / "share" / "orvane-da";
    return fs::is_directory(installed, error) ? installed.string() : ORVANE_SOURCE_DATA_ROOT;
}

const std::string& dataRoot() {
    static const std::string root = findDataRoot();
    return root;
}

}  // namespace

extern "C" const char* tzplatform_mkpath(enum tzplatform_variable id, const char* path) {
    thread_local std::string made;
    if (id != TZPLATFORM_DATA_ROOT || path == nullptr) {
        return nullptr;
    }
    try {
        made = dataRoot() + "/" + path;
    } catch (const std::exception&) {
        return nullptr;
    }
    return made.c_str();
}

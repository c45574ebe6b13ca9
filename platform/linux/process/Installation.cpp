// SPDX-License-Identifier: Apache-2.0
#include "process/Installation.h"

#include <filesystem>

namespace process {

namespace fs = std::filesystem;

std::string installed(const std::string& name) {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    for (fs::path folder = program.parent_path(); folder.has_relative_path();) {
        folder = folder.parent_path();
        if (fs::exists(folder / "share" / name, error)) {
            return folder / "share" / name;
        }
    }
    return program.parent_path().parent_path() / "share" / name;
}

}  // namespace process

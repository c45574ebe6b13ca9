// SPDX-License-Identifier: Apache-2.0
#include "appliance/environment/Tree.h"

#include <filesystem>
#include <stdexcept>

namespace fs = std::filesystem;

namespace {

constexpr char kData[] = "share/orvane-da";  // a link to the data directory of the source tree

fs::path findBuildFolder() {
    fs::path folder = fs::read_symlink("/proc/self/exe").parent_path();
    while (!fs::is_directory(folder / kData)) {
        if (!folder.has_relative_path()) {
            throw std::runtime_error("this program is not in its build tree");
        }
        folder = folder.parent_path();
    }
    return folder;
}

}  // namespace

std::string sim::buildFolder() {
    static const std::string folder = findBuildFolder();
    return folder;
}

std::string sim::sourceFolder() {
    return fs::canonical(fs::path(buildFolder()) / kData).parent_path();
}

std::string sim::builtProgram(const std::string& path) {
    return buildFolder() + "/" + path;
}

// SPDX-License-Identifier: Apache-2.0
#include "appliance/environment/Folder.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace sim {

Folder::Folder() {
    char name[] = "/tmp/orvane-appliance-XXXXXX";
    if (mkdtemp(name) == nullptr) {
        throw std::runtime_error("cannot create a directory in /tmp");
    }
    mPath = name;
}

Folder::~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(mPath, ignored);
}

std::string Folder::make(const std::string& name) const {
    const std::filesystem::path path = *this / name;
    std::filesystem::create_directories(path);
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    return path;
}

std::string Folder::write(const std::string& name, const std::string& content) const {
    const std::filesystem::path path = *this / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file(path);
    if (!(file << content)) {
        throw std::runtime_error("cannot write " + path.string());
    }
    return path;
}

}  // namespace sim

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/stat.h>

#include <string>

namespace localdb {

// Identifies the file at a path. The identity changes if the file is removed or replaced.
struct FileIdentity {
    dev_t device = 0;
    ino_t number = 0;  // 0: the file does not exist

    static FileIdentity of(const std::string& path) {
        struct stat status {};
        return stat(path.c_str(), &status) == 0 ? FileIdentity{status.st_dev, status.st_ino} : FileIdentity{};
    }
    bool isSame(const FileIdentity& other) const {
        return number != 0 && number == other.number && device == other.device;
    }
};

}  // namespace localdb

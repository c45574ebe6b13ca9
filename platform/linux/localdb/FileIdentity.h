// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/stat.h>

#include <string>

namespace localdb {

// Which file a path names. It changes when somebody removes or replaces the file.
struct FileIdentity {
    dev_t device = 0;
    ino_t number = 0;  // 0: there is no file

    static FileIdentity of(const std::string& path) {
        struct stat status {};
        return stat(path.c_str(), &status) == 0 ? FileIdentity{status.st_dev, status.st_ino} : FileIdentity{};
    }
    bool isSame(const FileIdentity& other) const {
        return number != 0 && number == other.number && device == other.device;
    }
};

}  // namespace localdb

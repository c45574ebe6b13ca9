// SPDX-License-Identifier: Apache-2.0
// A new directory in /tmp. The destructor removes it and everything in it.
#pragma once

#include <string>

namespace sim {

class Folder {
public:
    Folder();
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    const std::string& path() const { return mPath; }
    std::string operator/(const std::string& name) const { return mPath + "/" + name; }
    // Creates a directory in it that only this user can enter, and returns its path.
    std::string make(const std::string& name) const;
    // Writes a file, creates its parent directories, and returns its path. Throws std::runtime_error.
    std::string write(const std::string& name, const std::string& content) const;

private:
    std::string mPath;
};

}  // namespace sim

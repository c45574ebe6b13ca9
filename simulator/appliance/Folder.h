// SPDX-License-Identifier: Apache-2.0
// A folder of this run's own, removed with everything in it.
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
    std::string make(const std::string& name) const;
    // Creates the folders above it too. Throws std::runtime_error.
    std::string write(const std::string& name, const std::string& content) const;

private:
    std::string mPath;
};

}  // namespace sim

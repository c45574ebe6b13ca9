// SPDX-License-Identifier: Apache-2.0
// A private home for tests: a temporary directory for settings and sockets.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <stdexcept>
#include <string>

class PrivateHome {
public:
    PrivateHome() {
        char name[] = "/tmp/orvane-home-XXXXXX";
        if (mkdtemp(name) == nullptr) {
            throw std::runtime_error("cannot create a directory in /tmp");
        }
        mFolder = name;
        for (const char* variable : {"HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR", "XDG_DATA_HOME", "XDG_CACHE_HOME"}) {
            const std::string folder = mFolder + "/" + variable;
            std::filesystem::create_directory(folder);
            std::filesystem::permissions(folder, std::filesystem::perms::owner_all);
            setenv(variable, folder.c_str(), 1);
        }
    }
    ~PrivateHome() {
        std::error_code ignored;
        std::filesystem::remove_all(mFolder, ignored);
    }
    PrivateHome(const PrivateHome&) = delete;
    PrivateHome& operator=(const PrivateHome&) = delete;

    const std::string& folder() const { return mFolder; }

private:
    std::string mFolder;
};

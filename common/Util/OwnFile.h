// SPDX-License-Identifier: Apache-2.0
// Opens files at paths that other users can write to, such as /tmp.
#pragma once

#include <stdio.h>

#include <memory>

namespace Util {

struct CloseFile {
    void operator()(FILE* file) const noexcept { fclose(file); }
};

// The file, or null. Never follows a link and never blocks.
struct OwnFile {
    std::unique_ptr<FILE, CloseFile> file;
    // What the path names if it is not a regular file that this user owns; otherwise null. Set only without a file.
    const char* fault = nullptr;

    // Creates the file, with the permissions that the umask allows, or empties it.
    static OwnFile forWriting(const char* path);
    static OwnFile forReading(const char* path);
};

}  // namespace Util

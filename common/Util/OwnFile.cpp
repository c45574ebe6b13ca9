// SPDX-License-Identifier: Apache-2.0
#include "Util/OwnFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Util {

namespace {

const char* faultOf(const struct stat& status) {
    if (S_ISLNK(status.st_mode)) {
        return "a symbolic link";
    }
    if (!S_ISREG(status.st_mode)) {
        return "not a regular file";
    }
    return status.st_uid == geteuid() ? nullptr : "another user's file";
}

// O_NONBLOCK keeps a FIFO from blocking; regular files ignore it.
OwnFile openFile(const char* path, int flags, const char* mode) {
    const int descriptor = open(path, flags | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0666);
    struct stat status {};
    // The kernel itself refuses to open some of these files. The status of the path then shows the reason.
    const int known = descriptor >= 0 ? fstat(descriptor, &status) : lstat(path, &status);
    const char* fault = known == 0 ? faultOf(status) : nullptr;
    if (descriptor < 0) {
        return {nullptr, fault};
    }
    const bool usable = known == 0 && fault == nullptr && (flags == O_RDONLY || ftruncate(descriptor, 0) == 0);
    FILE* file = usable ? fdopen(descriptor, mode) : nullptr;
    if (file == nullptr) {
        close(descriptor);
    }
    return {std::unique_ptr<FILE, CloseFile>(file), fault};
}

}  // namespace

OwnFile OwnFile::forWriting(const char* path) {
    return openFile(path, O_WRONLY | O_CREAT, "wb");
}

OwnFile OwnFile::forReading(const char* path) {
    return openFile(path, O_RDONLY, "rb");
}

}  // namespace Util

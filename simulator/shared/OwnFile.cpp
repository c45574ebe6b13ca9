// SPDX-License-Identifier: Apache-2.0
#include "shared/OwnFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>

namespace sim {

namespace {

bool isOwnRegularFile(int handle) {
    struct stat status {};
    return fstat(handle, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == geteuid();
}

std::string contentOf(int handle) {
    std::string content;
    std::array<char, 4096> part{};
    for (ssize_t size = 0; (size = read(handle, part.data(), part.size())) > 0;) {
        content.append(part.data(), static_cast<std::size_t>(size));
    }
    return content;
}

}  // namespace

std::string contentOfOwnFile(const std::string& path) {
    const int handle = open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (handle < 0) {
        return {};
    }
    std::string content = isOwnRegularFile(handle) ? contentOf(handle) : std::string();
    close(handle);
    return content;
}

}  // namespace sim

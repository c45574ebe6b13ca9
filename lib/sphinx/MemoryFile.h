// SPDX-License-Identifier: Apache-2.0
// A file in memory, for text that the decoder can read only from a path.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <stdexcept>
#include <string>

namespace sphinx {

class MemoryFile {
public:
    explicit MemoryFile(const std::string& content) : mDescriptor(memfd_create("orvane-words", MFD_CLOEXEC)) {
        if (mDescriptor < 0 || !writeAll(content)) {
            throw std::runtime_error("out of memory for a word list");
        }
    }
    ~MemoryFile() { ::close(mDescriptor); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    // Valid in this process as long as the object exists.
    std::string path() const { return "/proc/self/fd/" + std::to_string(mDescriptor); }

private:
    bool writeAll(const std::string& content) const {
        return ::write(mDescriptor, content.data(), content.size()) == static_cast<ssize_t>(content.size());
    }

    int mDescriptor;
};

}  // namespace sphinx

// SPDX-License-Identifier: Apache-2.0
// Reads, writes, and removes whole files. Every operation is synchronous, logs a failure once, and never throws.
// Reading and writing require a regular file that this user owns, because other users can create files in the same
// directory.
#pragma once

#include <memory>
#include <string>

namespace Util {

// The path of a file and a copy of its bytes.
class FileContent {
public:
    explicit FileContent(const char* filePath) : path(filePath) {}
    virtual ~FileContent() = default;
    FileContent(const FileContent&) = delete;
    FileContent& operator=(const FileContent&) = delete;

    // Copies `size` bytes. If the source is null, the size is below 1, or memory runs out, the object stays unchanged.
    FileContent& setCopiedData(const char* src, int size);

    std::string path;
    int size = 0;
    std::unique_ptr<char[]> data;
    bool nullTerminate = false;  // write() appends one zero byte
};

class FileHelper {
public:
    // Creates or replaces the file and syncs it to storage.
    static bool write(FileContent& content);
    // For an empty file, returns true and leaves the content unchanged.
    static bool read(FileContent& content);
    static bool remove(FileContent& content);
    static bool isReadable(FileContent& content);
    static bool isWritable(FileContent& content);
    static bool isExist(FileContent& content);
};

}  // namespace Util

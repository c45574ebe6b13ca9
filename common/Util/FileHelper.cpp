// SPDX-License-Identifier: Apache-2.0
#include "Util/FileHelper.h"

#include <stdio.h>
#include <string.h>
#include <unistd.h>

#include <limits>
#include <new>
#include <utility>

#include "Util/Log.h"
#include "Util/OwnFile.h"

namespace Util {

FileContent& FileContent::setCopiedData(const char* src, int newSize) {
    std::unique_ptr<char[]> copy(src != nullptr && newSize > 0 ? new (std::nothrow) char[newSize] : nullptr);
    if (copy == nullptr) {
        LOGE("Data set fail , filepath : %s", path.c_str());
        return *this;
    }
    data = std::move(copy);
    memcpy(data.get(), src, newSize);
    size = newSize;
    return *this;
}

bool FileHelper::write(FileContent& content) {
    if (content.data == nullptr) {
        LOGE("Data is not set");
        return false;
    }
    auto [file, fault] = OwnFile::forWriting(content.path.c_str());
    if (fault != nullptr) {
        LOGE("file open error : %s is %s", content.path.c_str(), fault);
        return false;
    }
    if (file == nullptr) {
        LOGE("file open error");
        return false;
    }
    fwrite(content.data.get(), content.size, 1, file.get());
    if (content.nullTerminate) {
        fputc(0, file.get());
    }
    file.reset();
    sync();
    return true;
}

bool FileHelper::read(FileContent& content) {
    const char* path = content.path.c_str();
    auto [file, fault] = OwnFile::forReading(path);
    if (fault != nullptr) {
        LOGE("File open fail, path = %s, which is %s", path, fault);
        return false;
    }
    if (file == nullptr) {
        LOGE("File open fail, path = %s", path);
        return false;
    }
    if (fseek(file.get(), 0, SEEK_END) < 0) {
        LOGE("fseek fail");
        return false;
    }
    const long size = ftell(file.get());
    if (size < 0 || size > std::numeric_limits<int>::max()) {
        LOGE("Invalid size");
        return false;
    }
    if (fseek(file.get(), 0, SEEK_SET) < 0) {
        LOGE("fseek fail");
        return false;
    }
    std::unique_ptr<char[]> buffer(new (std::nothrow) char[size]);
    if (buffer == nullptr || fread(buffer.get(), 1, size, file.get()) != static_cast<size_t>(size)) {
        LOGE("file read fail , path = %s", path);
        return false;
    }
    file.reset();
    content.setCopiedData(buffer.get(), static_cast<int>(size));
    return true;
}

bool FileHelper::remove(FileContent& content) {
    if (unlink(content.path.c_str()) != 0) {
        LOGE("failed to delete file : %s", content.path.c_str());
        return false;
    }
    return true;
}

bool FileHelper::isReadable(FileContent& content) {
    if (access(content.path.c_str(), R_OK) != 0) {
        LOGD("Can't Readable");
        return false;
    }
    return true;
}

bool FileHelper::isWritable(FileContent& content) {
    if (access(content.path.c_str(), W_OK) != 0) {
        LOGD("Can't Writable");
        return false;
    }
    return true;
}

bool FileHelper::isExist(FileContent& content) {
    if (access(content.path.c_str(), F_OK) != 0) {
        LOGD("File not exist");
        return false;
    }
    return true;
}

}  // namespace Util

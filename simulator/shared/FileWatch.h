// SPDX-License-Identifier: Apache-2.0
// Watches a file, which need not exist yet.
#pragma once

#include <functional>
#include <string>

namespace sim {

class FileWatch {
public:
    // `onWritten` runs on the main context each time that the file has been written or replaced. Throws
    // std::runtime_error when the directory cannot be watched. The object must live until the process ends.
    FileWatch(const std::string& folder, std::string name, std::function<void()> onWritten);
    FileWatch(const FileWatch&) = delete;
    FileWatch& operator=(const FileWatch&) = delete;

private:
    void read() const;

    int mHandle;
    std::string mName;
    std::function<void()> mOnWritten;
};

}  // namespace sim

// SPDX-License-Identifier: Apache-2.0
// Tells on the main loop each time that a file has been rewritten, also one that is not there yet.
#pragma once

#include <functional>
#include <string>

namespace sim {

class FileWatch {
public:
    // Throws std::runtime_error when the file's folder cannot be watched. Lives until the process ends.
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

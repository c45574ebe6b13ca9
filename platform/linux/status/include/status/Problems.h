// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <mutex>
#include <string>

namespace status {

// Tracks which parts of the running service do not work, and why. The service manager shows this in its status text.
// Shared by the process. Any thread; nothing here blocks.
class Problems {
public:
    enum class Part { Capture, WakeEngine, Recognizer };

    // `problem` is one line without a period. Empty: the part works.
    void set(Part part, const std::string& problem);
    // All problems in one line, separated by semicolons. "Ready" if all parts work.
    std::string text() const;

private:
    std::string allInOneLine() const;  // needs the lock

    mutable std::mutex mMutex;
    std::map<Part, std::string> mProblems;
};

}  // namespace status

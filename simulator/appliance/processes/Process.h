// SPDX-License-Identifier: Apache-2.0
// A child process, which ends at the latest when the thread that started it ends.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace sim {

class Process {
public:
    // Appends its output to the file `log`. Throws std::runtime_error when it cannot be started.
    Process(const std::vector<std::string>& words, const std::string& log);
    ~Process() { stop(); }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    pid_t id() const { return mId; }
    bool runs();
    // Waits for the end. Returns the exit code, or 128 plus the signal that ended the process.
    int wait();
    // Sends SIGTERM, and SIGKILL when the process still runs 20 s later.
    void stop();
    void kill();

private:
    pid_t mId = 0;
    int mCode = 0;
};

}  // namespace sim

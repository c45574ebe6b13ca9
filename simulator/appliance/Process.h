// SPDX-License-Identifier: Apache-2.0
// A child process that ends with its owner, however that ends. Start them on the thread that lives longest.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace sim {

class Process {
public:
    // Output goes to the file `log`. Throws std::runtime_error when it cannot be started.
    Process(const std::vector<std::string>& words, const std::string& log);
    ~Process() { stop(); }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    pid_t id() const { return mId; }
    bool runs();
    // Waits for its end; its exit code, or 128 and the signal.
    int wait();
    // Asks it to end, and ends it when it does not within 20 s.
    void stop();
    void kill();

private:
    pid_t mId = 0;
    int mCode = 0;
};

}  // namespace sim

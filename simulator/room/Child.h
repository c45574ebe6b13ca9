// SPDX-License-Identifier: Apache-2.0
// Owns a child process, which ends with this object and also when this process dies.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

class Child {
public:
    // Runs a program found on the PATH; `environment` (NAME=value) is added to ours; `output` becomes its standard
    // output and error. Throws std::runtime_error.
    explicit Child(const std::vector<std::string>& words, const std::vector<std::string>& environment = {},
                   int output = -1);
    ~Child();
    Child(Child&& other) noexcept;
    Child& operator=(Child&& other) noexcept;

    pid_t id() const { return mId; }
    bool running();
    void signal(int number) const;
    // Waits for the program's end; its exit status, -1 when a signal ended it.
    int wait();
    // Asks it to end, and waits.
    void stop();
    // Ends it at once, and waits.
    void kill();

private:
    pid_t mId = 0;
};

// SPDX-License-Identifier: Apache-2.0
// A child process, which ends with this object and also when this process is killed.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

class Child {
public:
    // Runs a program from the PATH. `environment` (NAME=value) extends this process's environment. `output`, a file
    // descriptor, becomes the program's standard output and error. Throws std::runtime_error.
    explicit Child(const std::vector<std::string>& words, const std::vector<std::string>& environment = {},
                   int output = -1);
    ~Child();
    Child(Child&& other) noexcept;
    Child& operator=(Child&& other) noexcept;

    pid_t id() const { return mId; }
    bool running();
    void signal(int number) const;
    // Sends SIGSTOP and waits until the program has stopped.
    void freeze() const;
    // Waits for its end. Returns the exit status, or -1 when a signal ended it.
    int wait();
    // Sends SIGTERM and waits for the end.
    void stop();
    // Sends SIGKILL and waits for the end.
    void kill();

private:
    pid_t mId = 0;
};

// SPDX-License-Identifier: Apache-2.0
// A child process whose output a test reads line by line.
#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "room/Child.h"

class Program {
public:
    explicit Program(const std::vector<std::string>& words);

    // The next line; empty at the end.
    std::string line();
    // The next line that contains `part`; empty if there is none.
    std::string lineWith(const std::string& part);
    std::string rest();

    Child& process() { return *mProcess; }
    // Its exit status.
    int wait() { return mProcess->wait(); }

private:
    struct Close {
        void operator()(FILE* file) const noexcept { fclose(file); }
    };
    std::unique_ptr<FILE, Close> mOutput;
    std::unique_ptr<Child> mProcess;
};

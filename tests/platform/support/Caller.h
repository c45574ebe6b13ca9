// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/Program.h"

// Calls methods of bus objects from a separate process, as this user or as another one. Caller.cpp describes the
// arguments and the result.
class Caller {
public:
    Caller() { std::filesystem::copy_file(BUS_CALLER, mProgram); }  // the original may be readable only by root
    ~Caller() { std::filesystem::remove(mProgram); }
    Caller(const Caller&) = delete;
    Caller& operator=(const Caller&) = delete;

    static bool canBecomeAnotherUser() { return getuid() == 0; }
    std::string call(const std::vector<std::string>& arguments) const { return run({mProgram}, arguments); }
    std::string callAsAnotherUser(const std::vector<std::string>& arguments) const {
        return run({"setpriv", "--reuid=65534", "--regid=65534", "--clear-groups", mProgram}, arguments);
    }

private:
    static std::string run(std::vector<std::string> words, const std::vector<std::string>& arguments) {
        words.insert(words.end(), arguments.begin(), arguments.end());
        return Program(words).line();
    }

    const std::filesystem::path mProgram =
        std::filesystem::temp_directory_path() / ("orvane-caller-" + std::to_string(getpid()));
};

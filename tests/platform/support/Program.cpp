// SPDX-License-Identifier: Apache-2.0
#include "Program.h"

#include <fcntl.h>
#include <unistd.h>

#include <stdexcept>

Program::Program(const std::vector<std::string>& words) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        throw std::runtime_error("cannot create a pipe");
    }
    mOutput.reset(fdopen(ends[0], "r"));
    mProcess = std::make_unique<Child>(words, std::vector<std::string>{"ORVANE_LOG=stderr"}, ends[1]);
    close(ends[1]);
}

std::string Program::line() {
    char text[500] = "";
    const std::string line = fgets(text, sizeof text, mOutput.get()) ? text : "";
    return line.substr(0, line.find('\n'));
}

std::string Program::lineWith(const std::string& part) {
    std::string found = line();
    while (!found.empty() && found.find(part) == std::string::npos) {
        found = line();
    }
    return found;
}

std::string Program::rest() {
    std::string all;
    for (int letter = 0; (letter = fgetc(mOutput.get())) != EOF;) {
        all += static_cast<char>(letter);
    }
    return all;
}

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace sim {

// What the command line of script/run requests.
struct Options {
    std::string say;
    std::string wav;
    std::string voice = "slt";
    bool microphone = false;
};

// Ends the program after --help, and with code 2 and a message after a wrong option.
Options readOptions(int count, char** words);

}  // namespace sim

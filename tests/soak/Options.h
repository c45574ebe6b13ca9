// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace soak {

struct Options {
    int requests = 2000;
    unsigned seed = 1;
    std::string json;
};

// Ends the program after --help, and with code 2 and a message after a wrong option.
Options readOptions(int count, char** words);

}  // namespace soak

#pragma once

#include <string>
#include <vector>

namespace fake {

// What the program wrote to standard output through its log, a text a call.
std::vector<std::string> output();

}  // namespace fake

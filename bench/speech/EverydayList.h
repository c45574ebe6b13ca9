// SPDX-License-Identifier: Apache-2.0
// The list of everyday sentences (everyday.txt, which describes its format).
#pragma once

#include <string>
#include <vector>

#include "voice/SentenceFile.h"

namespace bench {

struct Everyday {
    std::string sentence;
    std::string agent;  // empty: must be rejected
    std::string actionName;
    voice::Fields fields;  // that the result must contain
};

// Throws std::runtime_error if the file cannot be read or a line is malformed.
std::vector<Everyday> readEveryday(const std::string& path);

}  // namespace bench

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace sphinx {

// Whether the binary model definition (the file "mdef" of an acoustic model) is as long as its header says. The library
// does not check this and would read beyond its end. True for a definition in another format.
bool isWholeDefinition(const std::string& file);

}  // namespace sphinx

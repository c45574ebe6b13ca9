// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace process {

// The nearest share/NAME above the program: a file or directory of the installation or of the build tree. If there is
// none, the path that an installation would have.
std::string installed(const std::string& name);

}  // namespace process

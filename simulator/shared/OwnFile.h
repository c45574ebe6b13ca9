// SPDX-License-Identifier: Apache-2.0
// Reads the files of the service in /tmp, where any user can create files.
#pragma once

#include <string>

namespace sim {

// The content of the file. Empty unless it is a regular file of this process's user. Follows no link and does not wait.
std::string contentOfOwnFile(const std::string& path);

}  // namespace sim

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <string>

namespace fake {

void setRunning(const std::string& appId, pid_t pid = 0);

}  // namespace fake

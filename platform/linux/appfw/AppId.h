// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <string>

namespace appfw {

// The application id of a process: of the bus names that it owns the first in the alphabet that is an application's;
// empty when it has none. Blocks for a few round trips.
std::string appIdOf(pid_t pid);

// This process's own, once it owns one.
const std::string& ownAppId();
void setOwnAppId(const std::string& id);

}  // namespace appfw

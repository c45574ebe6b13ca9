// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <string>

namespace appfw {

// The application id of a process: of its bus names, the alphabetically first that belongs to an application; empty
// without one. Blocks for a few round trips.
std::string appIdOf(pid_t pid);

// This process's own application id, once it has one.
const std::string& ownAppId();
void setOwnAppId(const std::string& id);

}  // namespace appfw

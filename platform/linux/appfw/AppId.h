// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <string>

namespace appfw {

// The application id of a process: the alphabetically first of its bus names that belongs to an application. Empty if
// it has none. Waits for the bus: one round trip, plus one for each application that is new on it. Any thread except
// the IO thread.
std::string appIdOf(pid_t pid);

// This process's own application id; empty until it has one. Any thread.
std::string ownAppId();
void setOwnAppId(const std::string& id);

}  // namespace appfw

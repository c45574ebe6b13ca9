// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "appliance/environment/Folder.h"

namespace sim {

// Replaces the environment variables of this process, which its children inherit, and writes the files that they refer
// to: bus configurations, activatable applications, the default viewer. The machine's own session is not reachable
// through them. Create it once in a process, before the process has threads.
class Environment {
public:
    explicit Environment(const Folder& folder);
};

}  // namespace sim

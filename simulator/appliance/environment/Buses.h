// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>

#include "appliance/environment/Folder.h"
#include "appliance/processes/Process.h"
#include "lib/Bus.h"

namespace sim {

// The appliance's session bus and system bus, with a connection to each.
class Buses {
public:
    // Starts both daemons with the configurations that Environment wrote. Throws std::runtime_error.
    explicit Buses(const Folder& folder);
    Buses(const Buses&) = delete;
    Buses& operator=(const Buses&) = delete;

    Bus& session() { return mSession; }
    Bus& system() { return mSystem; }

private:
    std::unique_ptr<Process> mSystemDaemon;
    std::unique_ptr<Process> mSessionDaemon;
    Bus mSystem;
    Bus mSession;
};

}  // namespace sim

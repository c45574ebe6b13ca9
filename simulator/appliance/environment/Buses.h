// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>

#include "appliance/environment/Folder.h"
#include "appliance/processes/Process.h"
#include "gio/Connection.h"

namespace sim {

// The appliance's session bus and system bus, with a connection to each.
class Buses {
public:
    // Starts both daemons with the configurations that Environment wrote. Throws std::runtime_error.
    explicit Buses(const Folder& folder);
    Buses(const Buses&) = delete;
    Buses& operator=(const Buses&) = delete;

    const gio::Connection& session() const { return mSession; }
    const gio::Connection& system() const { return mSystem; }
    pid_t sessionDaemon() const { return mSessionDaemon->id(); }
    pid_t systemDaemon() const { return mSystemDaemon->id(); }

private:
    std::unique_ptr<Process> mSystemDaemon;
    std::unique_ptr<Process> mSessionDaemon;
    gio::Connection mSystem;
    // Shared with the settings library, which therefore cannot end this process when the bus ends.
    gio::Connection mSession;
};

}  // namespace sim

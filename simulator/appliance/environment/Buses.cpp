// SPDX-License-Identifier: Apache-2.0
#include "appliance/environment/Buses.h"

#include <filesystem>
#include <stdexcept>

#include "appliance/processes/Until.h"

namespace sim {

namespace {

// The settings library uses this process's shared connection. By default GLib ends the process when that connection
// closes.
void keepProcessWithoutBus() {
    Fault fault;
    static const Pointer<GDBusConnection> shared(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, fault.out()));
    if (!shared) {
        throw std::runtime_error("no session bus: " + fault.text());
    }
    g_dbus_connection_set_exit_on_close(shared.get(), FALSE);
}

std::unique_ptr<Process> startDaemon(const Folder& folder, const std::string& type) {
    auto daemon = std::make_unique<Process>(
        std::vector<std::string>{"dbus-daemon", "--nofork", "--config-file=" + (folder / (type + ".conf"))},
        folder / "dbus.log");
    until("the " + type + " bus is there", [&] { return std::filesystem::exists(folder / (type + ".bus")); });
    return daemon;
}

}  // namespace

Buses::Buses(const Folder& folder)
    : mSystemDaemon(startDaemon(folder, "system")),
      mSessionDaemon(startDaemon(folder, "session")),
      mSystem("unix:path=" + (folder / "system.bus")),
      mSession("unix:path=" + (folder / "session.bus")) {
    keepProcessWithoutBus();
}

}  // namespace sim

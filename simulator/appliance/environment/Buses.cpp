// SPDX-License-Identifier: Apache-2.0
#include "appliance/environment/Buses.h"

#include <filesystem>

#include "appliance/processes/Until.h"

namespace sim {

namespace {

std::unique_ptr<Process> startDaemon(const Folder& folder, const std::string& type) {
    auto daemon = std::make_unique<Process>(
        std::vector<std::string>{"dbus-daemon", "--nofork", "--config-file=" + (folder / (type + ".conf"))},
        folder / "dbus.log");
    until("the " + type + " bus has a socket", [&] { return std::filesystem::exists(folder / (type + ".bus")); });
    return daemon;
}

}  // namespace

Buses::Buses(const Folder& folder)
    : mSystemDaemon(startDaemon(folder, "system")),
      mSessionDaemon(startDaemon(folder, "session")),
      mSystem(gio::Connection::open("unix:path=" + (folder / "system.bus"), gio::Context::main())),
      mSession(gio::Connection::openShared(G_BUS_TYPE_SESSION, gio::Context::main())) {}

}  // namespace sim

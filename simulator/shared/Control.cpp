// SPDX-License-Identifier: Apache-2.0
#include "shared/Control.h"

#include "dbus/standins/StandInInterfaces.h"

namespace sim {

namespace {

constexpr char kPath[] = "/org/orvane/sim/Control";
constexpr char kInterface[] = "org.orvane.sim.Control1";

}  // namespace

gio::Registration exportControl(
    const gio::Connection& bus,
    const std::function<void(const std::string& action, const std::string& argument)>& handler) {
    return bus.exportObject(kPath, dbus::standInInterface(kInterface), [handler](gio::MethodCall& call) {
        const auto [action, argument] = call.arguments().fields<std::string, std::string>();
        handler(action, argument);
        call.reply();
    });
}

void control(const gio::Connection& bus, const std::string& application, const std::string& action,
             const std::string& argument) {
    bus.call({application, kPath, kInterface}, "Do", gio::Variant::tuple(action, argument));
}

}  // namespace sim

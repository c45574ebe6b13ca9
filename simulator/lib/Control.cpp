// SPDX-License-Identifier: Apache-2.0
#include "lib/Control.h"

namespace sim {

namespace {

constexpr char kPath[] = "/org/orvane/sim/Control";
constexpr char kInterface[] = "org.orvane.sim.Control1";
constexpr char kXml[] =
    "<interface name='org.orvane.sim.Control1'>"
    "<method name='Do'><arg type='s' direction='in'/><arg type='s' direction='in'/></method></interface>";

}  // namespace

void serveControl(Bus& bus,
                  const std::function<void(const std::string& action, const std::string& argument)>& handler) {
    bus.serve(kPath, kXml, [handler](const std::string&, const std::string&, GVariant* arguments) -> GVariant* {
        const char* action = nullptr;
        const char* argument = nullptr;
        g_variant_get(arguments, "(&s&s)", &action, &argument);
        handler(action, argument);
        return nullptr;
    });
}

void control(Bus& bus, const std::string& application, const std::string& action, const std::string& argument) {
    bus.call(application, kPath, kInterface, "Do", g_variant_new("(ss)", action.c_str(), argument.c_str()));
}

}  // namespace sim

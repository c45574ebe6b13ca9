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

void serveOrders(Bus& bus, const std::function<void(const std::string& order, const std::string& argument)>& handler) {
    bus.serve(kPath, kXml, [handler](const std::string&, const std::string&, GVariant* arguments) -> GVariant* {
        const char* order = nullptr;
        const char* argument = nullptr;
        g_variant_get(arguments, "(&s&s)", &order, &argument);
        handler(order, argument);
        return nullptr;
    });
}

void order(Bus& bus, const std::string& application, const std::string& order, const std::string& argument) {
    bus.call(application, kPath, kInterface, "Do", g_variant_new("(ss)", order.c_str(), argument.c_str()));
}

}  // namespace sim

// SPDX-License-Identifier: Apache-2.0
// usage: bus_caller NAME PATH INTERFACE METHOD [EXTRAS BYTES]: calls a method on the session bus and prints the name of
// the error, or "accepted". Launch and Reply get EXTRAS extras whose values have BYTES bytes each.
#include <cstdio>
#include <string>

#include "appfw/Request.h"
#include "gio/Address.h"
#include "gio/Connection.h"

namespace {

gio::Variant argumentsOf(const std::string& method, int extras, int bytes) {
    appfw::WireExtras wire;
    for (int i = 0; i < extras; ++i) {
        wire.push_back({{std::to_string(i)}, false, {{std::string(bytes, 'x')}}});
    }
    if (method == "Launch") {
        return gio::Variant::tuple("nothing", "", wire, "");
    }
    if (method == "Reply") {
        return gio::Variant::tuple("nothing", 0, wire);
    }
    if (method == "Register") {
        return gio::Variant::tuple(std::vector<std::string>{"Recipe"});
    }
    return {};
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 5 && argc != 7) {
        return 2;
    }
    try {
        const auto bus = gio::Connection::open(gio::addressOf(G_BUS_TYPE_SESSION), gio::Context::main());
        bus.call({argv[1], argv[2], argv[3]}, argv[4],
                 argumentsOf(argv[4], argc == 7 ? std::stoi(argv[5]) : 0, argc == 7 ? std::stoi(argv[6]) : 0),
                 {60000, false});
        puts("accepted");
    } catch (const gio::CallError& error) {
        puts(error.name().c_str());
    }
    return 0;
}

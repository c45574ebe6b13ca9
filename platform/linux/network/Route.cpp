// SPDX-License-Identifier: Apache-2.0
#include "Route.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "Links.h"

namespace network {

namespace {

connection_type_e kindOfInterface(const std::string& name) {
    std::error_code error;
    const std::filesystem::path interface = std::filesystem::path("/sys/class/net") / name;
    if (std::filesystem::exists(interface / "wireless", error) ||
        std::filesystem::exists(interface / "phy80211", error)) {
        return CONNECTION_TYPE_WIFI;
    }
    if (name.compare(0, 4, "wwan") == 0 || name.compare(0, 3, "ppp") == 0) {
        return CONNECTION_TYPE_CELLULAR;
    }
    return CONNECTION_TYPE_ETHERNET;
}

// The interface of the first row whose destination (and, for IPv6, prefix) is zero and whose link works. Empty if no
// row matches. Routes that reject packets name no interface, or the loopback interface.
std::string defaultInterface4() {
    std::ifstream routes("/proc/net/route");
    std::string line;
    while (std::getline(routes, line)) {
        std::istringstream row(line);
        std::string interface, destination, gateway, flags, skipped, mask;
        row >> interface >> destination >> gateway >> flags >> skipped >> skipped >> skipped >> mask;
        if (destination == "00000000" && mask == "00000000" && linkWorks(interface)) {
            return interface;
        }
    }
    return "";
}

std::string defaultInterface6() {
    std::ifstream routes("/proc/net/ipv6_route");
    std::string line;
    while (std::getline(routes, line)) {
        std::istringstream row(line);
        std::string destination, prefix, skipped, interface;
        row >> destination >> prefix;
        while (row >> skipped) {
            interface = skipped;
        }
        if (destination == std::string(32, '0') && prefix == "00" && interface != "lo" && linkWorks(interface)) {
            return interface;
        }
    }
    return "";
}

}  // namespace

connection_type_e kindOfDefaultRoute() {
    std::string interface = defaultInterface4();
    if (interface.empty()) {
        interface = defaultInterface6();
    }
    return interface.empty() ? CONNECTION_TYPE_DISCONNECTED : kindOfInterface(interface);
}

}  // namespace network

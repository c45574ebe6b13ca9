// SPDX-License-Identifier: Apache-2.0
#include "apps/Viewer.h"

#include <algorithm>

#include "dbus/standins/StandInInterfaces.h"

namespace sim {

namespace {

std::string pathOf(const std::string& id) {
    std::string path = "/" + id;
    std::replace(path.begin(), path.end(), '.', '/');
    std::replace(path.begin(), path.end(), '-', '_');
    return path;
}

}  // namespace

Viewer::Viewer(const std::string& id) : Application(id) {
    keep(bus().exportObject(pathOf(id), dbus::standInInterface("org.freedesktop.Application"),
                            [this](gio::MethodCall& call) { onDesktopCall(call); }));
}

void Viewer::onDesktopCall(gio::MethodCall& call) {
    if (call.method() == "Open") {
        const auto [uris, platformData] =
            call.arguments().fields<std::vector<std::string>, std::map<std::string, gio::Variant>>();
        for (const std::string& uri : uris) {
            record().write("opened", {{"uri", uri}});
        }
    } else {
        record().write("activated");
    }
    call.reply();
}

}  // namespace sim

// SPDX-License-Identifier: Apache-2.0
#include "OwnUnit.h"

#include <cstdlib>
#include <vector>

#include "gio/Command.h"

namespace appfw {

namespace {

bool isUnderSystemd() {
    return std::getenv("INVOCATION_ID") != nullptr;
}

}  // namespace

bool startInOwnUnit(const gio::DesktopApp& app, const std::string& uri) {
    const std::string file = app.file();
    if (file.empty() || !isUnderSystemd() || app.isBusActivatable()) {
        return false;
    }
    // gio ends as soon as it has started the application. The unit lives as long as the application. The caller sends
    // all states to the UI, so it must not wait for a service manager that hangs.
    std::vector<std::string> command{
        "timeout", "5",   "systemd-run", "--user", "--collect", "--quiet", "--property=ExitType=cgroup",
        "--",      "gio", "launch",      file};
    if (!uri.empty()) {
        command.push_back(uri);
    }
    return gio::succeeds(command);
}

}  // namespace appfw

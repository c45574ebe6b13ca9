// SPDX-License-Identifier: Apache-2.0
#include "OwnUnit.h"

#include <cstdlib>
#include <vector>

#include "gio/GPointer.h"

namespace appfw {

namespace {

bool isUnderSystemd() {
    return std::getenv("INVOCATION_ID") != nullptr;
}

bool succeeds(const std::vector<const char*>& command) {
    const auto quiet =
        static_cast<GSubprocessFlags>(G_SUBPROCESS_FLAGS_STDOUT_SILENCE | G_SUBPROCESS_FLAGS_STDERR_SILENCE);
    const gio::Object<GSubprocess> process(g_subprocess_newv(command.data(), quiet, nullptr));
    return process && g_subprocess_wait_check(process.get(), nullptr, nullptr);
}

}  // namespace

bool startInOwnUnit(GDesktopAppInfo* app, const std::string& uri) {
    const char* file = g_desktop_app_info_get_filename(app);
    if (!file || !isUnderSystemd() || g_desktop_app_info_get_boolean(app, "DBusActivatable")) {
        return false;
    }
    return succeeds({"systemd-run", "--user", "--collect", "--quiet", "--", "gio", "launch", file,
                     uri.empty() ? nullptr : uri.c_str(), nullptr});
}

}  // namespace appfw

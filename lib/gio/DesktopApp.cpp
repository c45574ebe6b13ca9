// SPDX-License-Identifier: Apache-2.0
#include "gio/DesktopApp.h"

#include <stdexcept>

namespace gio {

std::optional<DesktopApp> DesktopApp::find(const std::string& id) {
    GDesktopAppInfo* app = g_desktop_app_info_new((id + ".desktop").c_str());
    return app != nullptr ? std::optional(DesktopApp(app)) : std::nullopt;
}

std::optional<DesktopApp> DesktopApp::findForUri(const std::string& uri) {
    const Text scheme(g_uri_parse_scheme(uri.c_str()));
    GAppInfo* app = scheme ? g_app_info_get_default_for_uri_scheme(scheme.get()) : nullptr;
    return app != nullptr ? std::optional(DesktopApp(G_DESKTOP_APP_INFO(app))) : std::nullopt;
}

std::string DesktopApp::file() const {
    const char* path = g_desktop_app_info_get_filename(mApp.get());
    return path != nullptr ? path : "";
}

bool DesktopApp::isBusActivatable() const {
    return g_desktop_app_info_get_boolean(mApp.get(), "DBusActivatable") != FALSE;
}

void DesktopApp::launch(const std::string& uri) const {
    GList only{const_cast<char*>(uri.c_str()), nullptr, nullptr};
    Error error;
    if (g_app_info_launch_uris(G_APP_INFO(mApp.get()), uri.empty() ? nullptr : &only, nullptr, error.out()) == FALSE) {
        throw std::runtime_error(error.message());
    }
}

}  // namespace gio

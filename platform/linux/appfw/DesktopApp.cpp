// SPDX-License-Identifier: Apache-2.0
#include "DesktopApp.h"

#include <gio/gdesktopappinfo.h>

#include "OwnUnit.h"
#include "app_control.h"
#include "dlog.h"
#include "gio/GPointer.h"

namespace appfw {

namespace {

// `what` names the application in the log. `uri` may be empty.
int launch(GDesktopAppInfo* app, const std::string& uri, const std::string& what) {
    if (startInOwnUnit(app, uri)) {
        return APP_CONTROL_ERROR_NONE;
    }
    GList only{const_cast<char*>(uri.c_str()), nullptr, nullptr};
    gio::Error error;
    if (g_app_info_launch_uris(G_APP_INFO(app), uri.empty() ? nullptr : &only, nullptr, error.out())) {
        return APP_CONTROL_ERROR_NONE;
    }
    dlog_print(DLOG_ERROR, "orvane-appfw", "cannot launch %s: %s", what.c_str(), error.message().c_str());
    return APP_CONTROL_ERROR_LAUNCH_FAILED;
}

}  // namespace

int launchDesktopApp(const std::string& id, const std::string& uri) {
    const gio::Object<GDesktopAppInfo> app(g_desktop_app_info_new((id + ".desktop").c_str()));
    if (!app) {
        dlog_print(DLOG_ERROR, "orvane-appfw", "application %s is not installed", id.c_str());
        return APP_CONTROL_ERROR_APP_NOT_FOUND;
    }
    return launch(app.get(), uri, id);
}

int openInDefaultApp(const std::string& uri) {
    const gio::Text scheme(g_uri_parse_scheme(uri.c_str()));
    const gio::Object<GAppInfo> app(scheme ? g_app_info_get_default_for_uri_scheme(scheme.get()) : nullptr);
    if (!app) {
        dlog_print(DLOG_ERROR, "orvane-appfw", "no application is registered for the URI \"%s\"", uri.c_str());
        return APP_CONTROL_ERROR_APP_NOT_FOUND;
    }
    return launch(G_DESKTOP_APP_INFO(app.get()), uri, uri);
}

}  // namespace appfw

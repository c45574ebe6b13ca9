// SPDX-License-Identifier: Apache-2.0
#include "DesktopApp.h"

#include <exception>

#include "OwnUnit.h"
#include "app_control.h"
#include "dlog.h"
#include "gio/DesktopApp.h"

namespace appfw {

namespace {

// `what` names the application in the log. `uri` may be empty.
int launch(const gio::DesktopApp& app, const std::string& uri, const std::string& what) {
    if (startInOwnUnit(app, uri)) {
        return APP_CONTROL_ERROR_NONE;
    }
    try {
        app.launch(uri);
        return APP_CONTROL_ERROR_NONE;
    } catch (const std::exception& error) {
        dlog_print(DLOG_ERROR, "orvane-appfw", "cannot launch %s: %s", what.c_str(), error.what());
        return APP_CONTROL_ERROR_LAUNCH_FAILED;
    }
}

}  // namespace

int launchDesktopApp(const std::string& id, const std::string& uri) {
    const auto app = gio::DesktopApp::find(id);
    if (!app) {
        dlog_print(DLOG_ERROR, "orvane-appfw", "application %s is not installed", id.c_str());
        return APP_CONTROL_ERROR_APP_NOT_FOUND;
    }
    return launch(*app, uri, id);
}

int openInDefaultApp(const std::string& uri) {
    const auto app = gio::DesktopApp::findForUri(uri);
    if (!app) {
        dlog_print(DLOG_ERROR, "orvane-appfw", "no application is registered for the URI \"%s\"", uri.c_str());
        return APP_CONTROL_ERROR_APP_NOT_FOUND;
    }
    return launch(*app, uri, uri);
}

}  // namespace appfw

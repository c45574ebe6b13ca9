// SPDX-License-Identifier: Apache-2.0
#include "DesktopApp.h"

#include <exception>

#include "OwnUnit.h"
#include "app_control.h"
#include "gio/DesktopApp.h"
#include "process/FaultLog.h"

namespace appfw {

namespace {

void logFault(const std::string& app, const std::string& text) {
    process::logFault(DLOG_ERROR, "orvane-appfw", app, text);
}

// `what` names the application in the log. `uri` may be empty.
int launch(const gio::DesktopApp& app, const std::string& uri, const std::string& what) {
    if (startInOwnUnit(app, uri)) {
        return APP_CONTROL_ERROR_NONE;
    }
    try {
        app.launch(uri);
        return APP_CONTROL_ERROR_NONE;
    } catch (const std::exception& error) {
        logFault(what, "cannot launch " + what + ": " + error.what());
        return APP_CONTROL_ERROR_LAUNCH_FAILED;
    }
}

}  // namespace

int launchDesktopApp(const std::string& id, const std::string& uri) {
    const auto app = gio::DesktopApp::find(id);
    if (!app) {
        logFault(id, "application " + id + " is not installed");
        return APP_CONTROL_ERROR_APP_NOT_FOUND;
    }
    return launch(*app, uri, id);
}

int openInDefaultApp(const std::string& uri) {
    const auto app = gio::DesktopApp::findForUri(uri);
    if (!app) {
        logFault(uri, "no application is registered for the URI \"" + uri + "\"");
        return APP_CONTROL_ERROR_APP_NOT_FOUND;
    }
    return launch(*app, uri, uri);
}

}  // namespace appfw

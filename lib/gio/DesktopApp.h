// SPDX-License-Identifier: Apache-2.0
// An application that a desktop file describes.
#pragma once

#include <gio/gdesktopappinfo.h>

#include <optional>
#include <string>
#include <utility>

#include "gio/GPointer.h"

namespace gio {

class DesktopApp {
public:
    // The application of the desktop file ID.desktop.
    static std::optional<DesktopApp> find(const std::string& id);
    // The default application for the scheme of `uri`.
    static std::optional<DesktopApp> findForUri(const std::string& uri);

    // The path of its desktop file, "" if it has none.
    std::string file() const;
    // Whether the bus starts the application.
    bool isBusActivatable() const;
    // Starts the application, and passes it `uri` unless that is empty. Throws std::runtime_error with the reason.
    void launch(const std::string& uri) const;

private:
    explicit DesktopApp(GDesktopAppInfo* owned) : mApp(owned) {}

    Object<GDesktopAppInfo> mApp;
};

}  // namespace gio

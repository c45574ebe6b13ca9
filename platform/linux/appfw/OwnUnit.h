// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "gio/DesktopApp.h"

namespace appfw {

// Starts the application in its own systemd unit, through the user's service manager. In the service's unit, it would
// inherit restrictions under which, for example, a web browser does not work. Returns false if systemd does not run the
// service, if the bus starts the application anyway, or if the manager cannot start it. Blocks until the manager
// replies.
bool startInOwnUnit(const gio::DesktopApp& app, const std::string& uri);

}  // namespace appfw

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "gio/DesktopApp.h"

namespace appfw {

// The unit of the service restricts all processes in it, and a web browser does not work under these restrictions.
// Under systemd, this starts the application in a unit of its own instead, through the user's service manager. False
// without systemd, if the bus starts the application anyway, or if the manager cannot start it. Blocks until the
// manager answers.
bool startInOwnUnit(const gio::DesktopApp& app, const std::string& uri);

}  // namespace appfw

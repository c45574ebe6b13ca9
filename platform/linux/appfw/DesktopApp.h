// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace appfw {

// Applications of the desktop, which are known by their desktop file only. Both return an app_control_error_e.
int launchDesktopApp(const std::string& id, const std::string& uri);
int openInDefaultApp(const std::string& uri);

}  // namespace appfw

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace appfw {

// Desktop applications, which are identified only by their desktop files. Both functions return an app_control_error_e.
int launchDesktopApp(const std::string& id, const std::string& uri);
int openInDefaultApp(const std::string& uri);

}  // namespace appfw

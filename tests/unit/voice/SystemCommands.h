// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

// As the manager is given them.
inline const std::string SYSTEM_COMMANDS =
    "#org.tizen.weather,#org.tizen.clock,#org.tizen.launch apps,#org.tizen.system,#org.tizen.websearch";

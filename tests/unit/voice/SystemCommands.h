// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

// As the fake prints the list that the manager receives.
inline const std::string SYSTEM_COMMANDS =
    "#org.tizen.weather,#org.tizen.clock,#org.tizen.launch apps,#org.tizen.system,#org.tizen.websearch";

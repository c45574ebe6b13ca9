// SPDX-License-Identifier: Apache-2.0
// The service and the UI meet in files under /tmp with fixed names. In a mount namespace of its own with its own /tmp
// an appliance meets neither another one nor the person's files.
#pragma once

#include <string>
#include <vector>

namespace sim {

// What is below /tmp at `shown` (files or folders, by their real paths) is there in the new one too. Before the process
// has threads. False, and the old /tmp stays, where the machine does not allow it.
bool enterPrivateTmp(const std::vector<std::string>& shown = {});

}  // namespace sim

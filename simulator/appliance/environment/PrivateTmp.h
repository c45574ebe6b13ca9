// SPDX-License-Identifier: Apache-2.0
// The service and the UI exchange files with fixed names in /tmp. A private /tmp in a mount namespace separates the
// appliances of several processes from each other and from the machine's own /tmp.
#pragma once

#include <string>
#include <vector>

namespace sim {

// Enters a new mount namespace with an empty /tmp. The paths in `shown` (real paths of files or directories below
// /tmp), the source tree, the build tree, and the working directory remain visible. Call it before the process has
// threads. Returns false, and leaves /tmp as it is, when the machine does not permit this.
bool enterPrivateTmp(const std::vector<std::string>& shown = {});

}  // namespace sim

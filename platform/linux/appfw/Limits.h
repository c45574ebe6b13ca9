// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace appfw {

// Raises the limits of this process to what the service needs, where that is allowed. If a limit stays too low for the
// service to start, returns the reason; otherwise an empty string.
std::string insufficientLimit();

}  // namespace appfw

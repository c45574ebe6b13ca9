// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace appfw {

// Raises the limits of this process to what the service needs, where that is allowed. Returns the reason if the service
// cannot start within them; otherwise nothing.
std::string insufficientLimit();

}  // namespace appfw

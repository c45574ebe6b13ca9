// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace sim {

// The address of the user's own sound server. Call it before the environment becomes the appliance's.
std::string ownSoundServer();
// The socket in a sound server's address ("unix:/path" or "/path"), or an empty text.
std::string socketOf(const std::string& server);

}  // namespace sim

// SPDX-License-Identifier: Apache-2.0
#include "appliance/run/SoundServer.h"

#include <unistd.h>

#include <cstdlib>

namespace sim {

std::string ownSoundServer() {
    if (const char* server = getenv("PULSE_SERVER")) {
        return server;
    }
    const char* runtime = getenv("XDG_RUNTIME_DIR");
    return std::string("unix:") + (runtime != nullptr ? runtime : "/run/user/" + std::to_string(getuid())) +
           "/pulse/native";
}

std::string socketOf(const std::string& server) {
    const std::size_t path = server.rfind("unix:", 0) == 0 ? 5 : 0;
    return server.compare(path, 1, "/") == 0 ? server.substr(path) : "";
}

}  // namespace sim

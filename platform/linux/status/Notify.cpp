// SPDX-License-Identifier: Apache-2.0
#include "status/Notify.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstddef>
#include <cstdlib>

namespace status {

void notifyManager(const std::string& lines) noexcept {
    const char* path = std::getenv("NOTIFY_SOCKET");
    sockaddr_un address{};
    const std::size_t length = path ? std::char_traits<char>::length(path) : 0;
    if (length == 0 || length >= sizeof address.sun_path) {
        return;
    }
    address.sun_family = AF_UNIX;
    std::char_traits<char>::copy(address.sun_path, path, length);
    if (address.sun_path[0] == '@') {
        address.sun_path[0] = 0;  // an abstract name
    }
    const int connection = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (connection >= 0) {
        sendto(connection, lines.data(), lines.size(), MSG_NOSIGNAL, reinterpret_cast<sockaddr*>(&address),
               static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + length));
        close(connection);
    }
}

std::chrono::microseconds takeWatchdogLimit() noexcept {
    const char* limit = std::getenv("WATCHDOG_USEC");
    const char* process = std::getenv("WATCHDOG_PID");
    const bool forAnother = process && std::strtol(process, nullptr, 10) != getpid();
    const std::chrono::microseconds taken(limit && !forAnother ? std::strtoll(limit, nullptr, 10) : 0);
    unsetenv("WATCHDOG_USEC");
    return taken;
}

}  // namespace status

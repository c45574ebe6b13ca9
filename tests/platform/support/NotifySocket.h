// SPDX-License-Identifier: Apache-2.0
// A service manager's end of the notification socket. Sets NOTIFY_SOCKET for this process and its later children.
#pragma once

#include <poll.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <string>

class NotifySocket {
public:
    explicit NotifySocket(const std::string& folder) : mPath(folder + "/notify") {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        mPath.copy(address.sun_path, sizeof address.sun_path - 1);
        bind(mSocket, reinterpret_cast<sockaddr*>(&address), sizeof address);
        setenv("NOTIFY_SOCKET", mPath.c_str(), 1);
    }
    ~NotifySocket() {
        unsetenv("NOTIFY_SOCKET");
        close(mSocket);
        unlink(mPath.c_str());
    }
    NotifySocket(const NotifySocket&) = delete;
    NotifySocket& operator=(const NotifySocket&) = delete;

    // The next message. Empty if none comes in time.
    std::string next(int milliseconds = 10000) const {
        pollfd readable{mSocket, POLLIN, 0};
        char text[4096];
        const auto length = poll(&readable, 1, milliseconds) == 1 ? recv(mSocket, text, sizeof text, 0) : 0;
        return {text, static_cast<std::size_t>(length > 0 ? length : 0)};
    }

private:
    const std::string mPath;
    const int mSocket = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
};

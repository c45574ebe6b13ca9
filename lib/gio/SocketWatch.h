// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

#include "gio/GPointer.h"

namespace gio {

// Waits for datagrams whose content does not matter. `received` runs on the default main context of the thread that
// creates the object, after one or more datagrams, and must not throw. Destroy the object on the same thread.
class SocketWatch {
public:
    // Takes over `descriptor`, an open and nonblocking socket. Throws std::runtime_error.
    SocketWatch(int descriptor, std::function<void()> received);
    ~SocketWatch();
    SocketWatch(const SocketWatch&) = delete;
    SocketWatch& operator=(const SocketWatch&) = delete;

private:
    static gboolean onReadable(GSocket* socket, GIOCondition, gpointer self) noexcept;

    std::function<void()> mReceived;
    Object<GSocket> mSocket;
    Source mSource;
};

}  // namespace gio

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdlib>
#include <string>

#include "bus/SessionBus.h"
#include "gio/Connection.h"

// A private connection to a bus, so that a test can be another program on it. The IO thread runs its handlers.
inline gio::Connection ownConnection(const std::string& address = getenv("DBUS_SESSION_BUS_ADDRESS")) {
    return gio::Connection::open(address, bus::ioThread().context());
}

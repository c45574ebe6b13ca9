// SPDX-License-Identifier: Apache-2.0
// A connection to a bus that is not this process's shared one, so that a test can be another program on it.
#pragma once

#include <stdexcept>
#include <string>

#include "gio/GPointer.h"

// Throws std::runtime_error.
inline gio::Object<GDBusConnection> ownConnection(const std::string& address) {
    gio::Error fault;
    const auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                         G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    gio::Object<GDBusConnection> bus(
        g_dbus_connection_new_for_address_sync(address.c_str(), flags, nullptr, nullptr, fault.out()));
    if (bus == nullptr) {
        throw std::runtime_error("no connection to " + address + ": " + fault.message());
    }
    return bus;
}

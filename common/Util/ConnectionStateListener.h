// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <net_connection.h>

#include "Util/SystemStateListener.h"

namespace Util {

// Watches the type of the network connection. Without a connection handle, the callbacks never run.
class ConnectionStateListener : public SystemStateListener {
public:
    explicit ConnectionStateListener(connection_type_e type);
    ~ConnectionStateListener() override;

    // Opens the connection to the platform's network service when the program starts and closes it when the program
    // exits.
    class ConnectionInitializer {
    public:
        ConnectionInitializer();
        virtual ~ConnectionInitializer();
        ConnectionInitializer(const ConnectionInitializer&) = delete;
        ConnectionInitializer& operator=(const ConnectionInitializer&) = delete;

        connection_h getHandle() const { return mHandle; }  // null if the connection cannot be opened

    private:
        connection_h mHandle = nullptr;
    };

    static ConnectionInitializer mInitializer;

private:
    static void _type_changed_cb(connection_type_e type, void* listener) noexcept;

    connection_type_e mType;
};

}  // namespace Util

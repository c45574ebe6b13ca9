#pragma once

#include <net_connection.h>

#include <functional>
#include <memory>

#include "lib/gio/GPointer.h"

namespace network {

// NetworkManager on the system bus, while it runs there. I/O thread only.
class NetworkManager {
public:
    // Called when it came, went, or changed something.
    explicit NetworkManager(std::function<void()> changed);
    ~NetworkManager() = delete;  // lives until the process ends

    bool isRunning() const { return mRunning; }
    connection_type_e type() const { return mType; }

private:
    void ask();

    std::function<void()> mChanged;
    gio::Object<GDBusConnection> mBus;
    bool mRunning = false;
    connection_type_e mType = CONNECTION_TYPE_DISCONNECTED;
};

}  // namespace network

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <net_connection.h>

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

#include "Links.h"
#include "NetworkManager.h"
#include "gio/IoThread.h"

namespace network {

// The type of the appliance's network connection, from NetworkManager if it is running, otherwise from the default
// route.
class Monitor {
public:
    // Starts on the IO thread; the caller does not wait. The listener runs on the IO thread after each change. The type
    // begins as "disconnected", so a first answer of "disconnected" is not a change. The listener must not call the
    // monitor.
    explicit Monitor(std::function<void(connection_type_e)> listener);
    // Waits for the IO thread. The listener does not run afterward.
    ~Monitor();
    Monitor(const Monitor&) = delete;
    Monitor& operator=(const Monitor&) = delete;

    // Any thread except the IO thread. Waits for at most one second for the first answer.
    connection_type_e type();

private:
    void start();
    void update();

    gio::IoThread& mThread;
    const std::function<void(connection_type_e)> mListener;
    std::mutex mMutex;
    std::condition_variable mAnswered;
    bool mKnown = false;
    connection_type_e mType = CONNECTION_TYPE_DISCONNECTED;
    // On the IO thread.
    std::unique_ptr<NetworkManager> mManager;
    std::unique_ptr<LinkWatch> mLinks;
};

}  // namespace network

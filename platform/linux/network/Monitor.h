// SPDX-License-Identifier: Apache-2.0
// The type of the machine's network connection, from NetworkManager if it is running, otherwise from the default route.
#pragma once

#include <net_connection.h>

#include <condition_variable>
#include <functional>
#include <mutex>

namespace network {

class LinkWatch;
class NetworkManager;

class Monitor {
public:
    // Started on first use, on the IO thread; the caller does not wait. Lives until the process exits.
    static Monitor& get();

    // Any thread except the IO thread. Waits for at most one second for the first answer.
    connection_type_e type();
    // Replaces the listener. It runs on the IO thread after each change and after the first answer, unless that is
    // "disconnected", which readers get if they time out before the first answer. It must not call the monitor.
    void setListener(std::function<void(connection_type_e)> listener);

private:
    Monitor();
    void start();
    void update();

    std::mutex mMutex;
    std::condition_variable mAnswered;
    bool mKnown = false;
    connection_type_e mType = CONNECTION_TYPE_DISCONNECTED;
    std::function<void(connection_type_e)> mListener;
    LinkWatch* mLinks = nullptr;  // IO thread only, like the next
    NetworkManager* mManager = nullptr;
};

}  // namespace network

// SPDX-License-Identifier: Apache-2.0
// The machine's kind of connection: from NetworkManager where it runs, otherwise from the default route.
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
    // Started on first use, on the IO thread, without waiting; lives until the process ends.
    static Monitor& get();

    // Any thread but the IO thread. Waits at most a second for the first answer.
    connection_type_e type();
    // Replaces the listener. It runs on the IO thread at each change and at a first answer other than disconnected,
    // which is what a reader gets that does not wait long enough. It must not call the monitor.
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

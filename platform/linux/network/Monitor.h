// SPDX-License-Identifier: Apache-2.0
// The kind of connection of the machine: what NetworkManager says where it runs, the default route otherwise.
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
    // Started on first use, on the I/O thread, without waiting; lives until the process ends.
    static Monitor& get();

    // Any thread but the I/O thread; waits for the first answer, a second at most.
    connection_type_e type();
    // Told on the I/O thread of every change, and of a first answer other than disconnected, which is what a reader
    // that could not wait for it was given; the last listener set is the one told. Must not call back in.
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
    LinkWatch* mLinks = nullptr;  // I/O thread only, as is the next
    NetworkManager* mManager = nullptr;
};

}  // namespace network

// SPDX-License-Identifier: Apache-2.0
// Listens on loopback. One thread accepts connections, and one thread for each connection serves it. The destructor
// joins all of them.
#pragma once

#include <atomic>
#include <list>
#include <thread>

#include "hub-server/Hub.h"
#include "hub-server/Stream.h"

namespace sim::hub {

class Server {
public:
    // Port 0 selects a free port. Without an identity, the server uses plain HTTP. Throws std::runtime_error.
    Server(Hub& hub, int port, const openssl::Identity* identity);
    ~Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    int port() const;
    // The number of connections accepted so far. Any thread.
    int connections() const { return mAccepted; }

private:
    struct Connection {
        explicit Connection(int handle) : socket(handle) {}

        Socket socket;
        std::atomic<bool> over{false};
        std::thread thread;
    };
    void accept();
    void serve(Connection& connection);
    void removeThoseOver();
    // Returns false if the connection must be closed.
    bool answer(const Socket& socket, Stream& stream, const Request& request);

    Hub& mHub;
    const openssl::Identity* mIdentity;
    Socket mListener;
    std::atomic<int> mAccepted{0};
    std::list<Connection> mConnections;  // used by the accepting thread, and later by the destructor
    std::thread mAccepting;
};

}  // namespace sim::hub

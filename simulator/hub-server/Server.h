// SPDX-License-Identifier: Apache-2.0
// Listens on loopback. One thread accepts, one more serves each connection; both end with the server.
#pragma once

#include <atomic>
#include <list>
#include <thread>

#include "hub-server/Hub.h"
#include "hub-server/Stream.h"

namespace sim::hub {

class Server {
public:
    // Port 0: any free one. Without an identity it speaks plain HTTP. Throws std::runtime_error.
    Server(Hub& hub, int port, const Identity* identity);
    ~Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    int port() const;
    // Taken in so far, those over too. Any thread.
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
    // False when the connection is to be closed.
    bool answer(const Socket& socket, Stream& stream, const Request& request);

    Hub& mHub;
    const Identity* mIdentity;
    Socket mListener;
    std::atomic<int> mAccepted{0};
    std::list<Connection> mConnections;  // the accepting thread's, and the destructor's after it
    std::thread mAccepting;
};

}  // namespace sim::hub

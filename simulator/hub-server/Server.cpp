// SPDX-License-Identifier: Apache-2.0
#include "hub-server/Server.h"

#include <netinet/in.h>
#include <signal.h>
#include <sys/socket.h>

#include <cerrno>
#include <stdexcept>

#include "hub-server/Faults.h"

namespace sim::hub {

namespace {

Socket listenOn(int port) {
    Socket listener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<in_port_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const int yes = 1;
    setsockopt(listener.get(), SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    if (bind(listener.get(), reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        listen(listener.get(), SOMAXCONN) != 0) {
        throw std::runtime_error("cannot listen on port " + std::to_string(port));
    }
    return listener;
}

// In this thread and those that it starts, so that writing to a closed connection fails instead.
void blockPipeSignal() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

}  // namespace

Server::Server(Hub& hub, int port, const openssl::Identity* identity)
    : mHub(hub), mIdentity(identity), mListener(listenOn(port)), mAccepting([this] { accept(); }) {}

Server::~Server() {
    mListener.interrupt();
    mAccepting.join();
    for (Connection& connection : mConnections) {
        connection.socket.interrupt();
        connection.thread.join();
    }
}

int Server::port() const {
    sockaddr_in address{};
    socklen_t size = sizeof address;
    getsockname(mListener.get(), reinterpret_cast<sockaddr*>(&address), &size);
    return ntohs(address.sin_port);
}

void Server::accept() {
    blockPipeSignal();
    for (;;) {
        const int handle = accept4(mListener.get(), nullptr, nullptr, SOCK_CLOEXEC);
        if (handle < 0 && (errno == ECONNABORTED || errno == EINTR)) {
            continue;
        }
        if (handle < 0) {
            return;
        }
        ++mAccepted;
        removeThoseOver();
        Connection& connection = mConnections.emplace_back(handle);
        connection.thread = std::thread([this, &connection] { serve(connection); });
    }
}

void Server::removeThoseOver() {
    for (auto connection = mConnections.begin(); connection != mConnections.end();) {
        if (connection->over) {
            connection->thread.join();
            connection = mConnections.erase(connection);
        } else {
            ++connection;
        }
    }
}

// A connection that breaks ends only itself.
void Server::serve(Connection& connection) {
    try {
        const auto stream = makeStream(connection.socket, mIdentity);
        Reader reader(*stream);
        for (auto request = reader.next(); request && answer(connection.socket, *stream, *request);
             request = reader.next()) {
        }
    } catch (const std::exception& fault) {
        mHub.record().write("connection", {{"fault", fault.what()}});
    }
    connection.socket.interrupt();
    connection.over = true;
}

bool Server::answer(const Socket& socket, Stream& stream, const Request& request) {
    const Hub::Outcome outcome = mHub.take(request);
    if (!outcome.fault.is_null()) {
        return misbehave({socket, stream, outcome.answer, outcome.fault});
    }
    stream.write(textOf(outcome.answer));
    return true;
}

}  // namespace sim::hub

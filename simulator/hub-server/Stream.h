// SPDX-License-Identifier: Apache-2.0
// One connection, with or without TLS. One thread at a time may use it, except for interrupt().
#pragma once

#include <memory>
#include <string>

#include "openssl/Server.h"

namespace sim::hub {

class Socket {
public:
    explicit Socket(int handle) : mHandle(handle) {}
    ~Socket();
    Socket(Socket&& other) noexcept : mHandle(other.mHandle) { other.mHandle = -1; }
    Socket& operator=(Socket&&) = delete;

    int get() const { return mHandle; }
    // Any thread. Ends every wait on the socket.
    void interrupt() const;
    // Waits until the peer closes the connection, another thread calls interrupt(), or the time is over. -1 waits
    // without a limit. Returns false if the time is over.
    bool isLeftWithin(int milliseconds) const;

private:
    int mHandle;
};

class Stream {
public:
    virtual ~Stream() = default;
    // Returns "" at the end. Both throw std::runtime_error if the connection breaks.
    virtual std::string read() = 0;
    virtual void write(const std::string& bytes) = 0;
};

// The caller keeps the socket. With an identity, the stream uses TLS. Throws std::runtime_error if the handshake fails.
std::unique_ptr<Stream> makeStream(const Socket& socket, const openssl::Identity* identity);

}  // namespace sim::hub

// SPDX-License-Identifier: Apache-2.0
#include "hub-server/Stream.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>

namespace sim::hub {

namespace {

constexpr std::size_t kBlock = 16384;

class PlainStream : public Stream {
public:
    explicit PlainStream(int socket) : mSocket(socket) {}

    std::string read() override {
        std::string block(kBlock, 0);
        const ssize_t count = recv(mSocket, block.data(), block.size(), 0);
        if (count < 0) {
            throw std::runtime_error("the client broke the connection");
        }
        block.resize(static_cast<std::size_t>(count));
        return block;
    }

    void write(const std::string& bytes) override {
        for (std::size_t done = 0; done < bytes.size();) {
            const ssize_t count = send(mSocket, bytes.data() + done, bytes.size() - done, MSG_NOSIGNAL);
            if (count < 0) {
                throw std::runtime_error("the client has closed the connection");
            }
            done += static_cast<std::size_t>(count);
        }
    }

private:
    int mSocket;
};

class SecureStream : public Stream {
public:
    SecureStream(int socket, const openssl::Identity& identity) : mConnection(socket, identity) {}

    std::string read() override { return mConnection.read(kBlock); }
    void write(const std::string& bytes) override {
        if (!mConnection.write(bytes)) {
            throw std::runtime_error("the client has closed the connection");
        }
    }

private:
    openssl::Connection mConnection;
};

}  // namespace

Socket::~Socket() {
    if (mHandle >= 0) {
        close(mHandle);
    }
}

void Socket::interrupt() const {
    shutdown(mHandle, SHUT_RDWR);
}

bool Socket::isLeftWithin(int milliseconds) const {
    pollfd wait{mHandle, POLLRDHUP, 0};
    return poll(&wait, 1, milliseconds) > 0;
}

std::unique_ptr<Stream> makeStream(const Socket& socket, const openssl::Identity* identity) {
    if (identity != nullptr) {
        return std::make_unique<SecureStream>(socket.get(), *identity);
    }
    return std::make_unique<PlainStream>(socket.get());
}

}  // namespace sim::hub

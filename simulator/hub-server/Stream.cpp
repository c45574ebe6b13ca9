// SPDX-License-Identifier: Apache-2.0
#include "hub-server/Stream.h"

#include <openssl/err.h>
#include <openssl/ssl.h>
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
    SecureStream(int socket, SSL_CTX* context) : mSsl(SSL_new(context)) {
        if (!mSsl || SSL_set_fd(mSsl.get(), socket) != 1 || SSL_accept(mSsl.get()) != 1) {
            ERR_clear_error();
            throw std::runtime_error("the TLS handshake failed");
        }
    }

    std::string read() override {
        std::string block(kBlock, 0);
        const int count = SSL_read(mSsl.get(), block.data(), static_cast<int>(block.size()));
        ERR_clear_error();
        block.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
        return block;
    }

    void write(const std::string& bytes) override {
        if (SSL_write(mSsl.get(), bytes.data(), static_cast<int>(bytes.size())) <= 0) {
            ERR_clear_error();
            throw std::runtime_error("the client has closed the connection");
        }
    }

private:
    struct Free {
        void operator()(SSL* ssl) const noexcept {
            SSL_shutdown(ssl);
            ERR_clear_error();
            SSL_free(ssl);
        }
    };
    std::unique_ptr<SSL, Free> mSsl;
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

Identity::Identity(const std::string& certificate, const std::string& key)
    : mContext(SSL_CTX_new(TLS_server_method())) {
    if (!mContext || SSL_CTX_use_certificate_chain_file(mContext.get(), certificate.c_str()) != 1 ||
        SSL_CTX_use_PrivateKey_file(mContext.get(), key.c_str(), SSL_FILETYPE_PEM) != 1) {
        throw std::runtime_error("cannot use the certificate " + certificate + " with the key " + key);
    }
}

void Identity::Free::operator()(SSL_CTX* context) const noexcept {
    SSL_CTX_free(context);
}

std::unique_ptr<Stream> makeStream(const Socket& socket, const Identity* identity) {
    if (identity != nullptr) {
        return std::make_unique<SecureStream>(socket.get(), identity->get());
    }
    return std::make_unique<PlainStream>(socket.get());
}

}  // namespace sim::hub

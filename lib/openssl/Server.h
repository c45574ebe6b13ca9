// SPDX-License-Identifier: Apache-2.0
// The server's side of TLS.
#pragma once

#include <openssl/ssl.h>

#include <cstddef>
#include <memory>
#include <string>

namespace openssl {

// The certificate and the key of a server.
class Identity {
public:
    // PEM files. Throws std::runtime_error.
    Identity(const std::string& certificate, const std::string& key);
    SSL_CTX* get() const { return mContext.get(); }

private:
    struct Free {
        void operator()(SSL_CTX* context) const noexcept { SSL_CTX_free(context); }
    };
    std::unique_ptr<SSL_CTX, Free> mContext;
};

// One connection of a client. One thread at a time. The destructor sends TLS's closing message.
class Connection {
public:
    // The caller keeps the connected socket. Blocks until the handshake ends. Throws std::runtime_error if it fails.
    Connection(int socket, const Identity& identity);

    // Waits for bytes, at most `size`. Returns "" at the end and if the connection breaks.
    std::string read(std::size_t size);
    // Returns false if the client has closed the connection.
    bool write(const std::string& bytes);

private:
    struct Close {
        void operator()(SSL* ssl) const noexcept;
    };
    std::unique_ptr<SSL, Close> mSsl;
};

}  // namespace openssl

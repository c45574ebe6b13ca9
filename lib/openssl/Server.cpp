// SPDX-License-Identifier: Apache-2.0
#include "openssl/Server.h"

#include <openssl/err.h>

#include <stdexcept>

namespace openssl {

Identity::Identity(const std::string& certificate, const std::string& key)
    : mContext(SSL_CTX_new(TLS_server_method())) {
    if (!mContext || SSL_CTX_use_certificate_chain_file(mContext.get(), certificate.c_str()) != 1 ||
        SSL_CTX_use_PrivateKey_file(mContext.get(), key.c_str(), SSL_FILETYPE_PEM) != 1) {
        throw std::runtime_error("cannot use the certificate " + certificate + " with the key " + key);
    }
}

// A failed call leaves its error in the thread's error queue, where a later call would mistake it for its own.
Connection::Connection(int socket, const Identity& identity) : mSsl(SSL_new(identity.get())) {
    if (!mSsl || SSL_set_fd(mSsl.get(), socket) != 1 || SSL_accept(mSsl.get()) != 1) {
        ERR_clear_error();
        throw std::runtime_error("the TLS handshake failed");
    }
}

std::string Connection::read(std::size_t size) {
    std::string bytes(size, 0);
    const int count = SSL_read(mSsl.get(), bytes.data(), static_cast<int>(bytes.size()));
    ERR_clear_error();
    bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return bytes;
}

bool Connection::write(const std::string& bytes) {
    const bool written = SSL_write(mSsl.get(), bytes.data(), static_cast<int>(bytes.size())) > 0;
    ERR_clear_error();
    return written;
}

void Connection::Close::operator()(SSL* ssl) const noexcept {
    SSL_shutdown(ssl);
    ERR_clear_error();
    SSL_free(ssl);
}

}  // namespace openssl

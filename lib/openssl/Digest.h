// SPDX-License-Identifier: Apache-2.0
// Checksums.
#pragma once

#include <openssl/evp.h>

#include <cstddef>
#include <memory>
#include <string>

namespace openssl {

// Computes the SHA-256 hash of bytes that arrive in parts. One thread at a time.
class Sha256 {
public:
    // Throws std::runtime_error.
    Sha256();

    void add(const void* bytes, std::size_t size);
    // Returns the hash in hexadecimal, in lower case. Call this once, at the end.
    std::string finish();

private:
    struct Free {
        void operator()(EVP_MD_CTX* context) const noexcept { EVP_MD_CTX_free(context); }
    };
    std::unique_ptr<EVP_MD_CTX, Free> mContext;
};

}  // namespace openssl

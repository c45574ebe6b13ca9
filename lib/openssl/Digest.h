// SPDX-License-Identifier: Apache-2.0
// Checksums.
#pragma once

#include <openssl/evp.h>

#include <cstddef>
#include <memory>
#include <string>

namespace openssl {

// The SHA-256 of bytes that arrive in parts. One thread at a time.
class Sha256 {
public:
    // Throws std::runtime_error.
    Sha256();

    void add(const void* bytes, std::size_t size);
    // In hexadecimal, with lower-case letters. Call it once, at the end.
    std::string finish();

private:
    struct Free {
        void operator()(EVP_MD_CTX* context) const noexcept { EVP_MD_CTX_free(context); }
    };
    std::unique_ptr<EVP_MD_CTX, Free> mContext;
};

}  // namespace openssl

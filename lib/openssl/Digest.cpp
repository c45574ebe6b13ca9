// SPDX-License-Identifier: Apache-2.0
#include "openssl/Digest.h"

#include <stdexcept>

namespace openssl {

namespace {

void check(int result) {
    if (result != 1) {
        throw std::runtime_error("cannot compute a checksum");
    }
}

}  // namespace

Sha256::Sha256() : mContext(EVP_MD_CTX_new()) {
    check(mContext ? EVP_DigestInit_ex(mContext.get(), EVP_sha256(), nullptr) : 0);
}

void Sha256::add(const void* bytes, std::size_t size) {
    check(EVP_DigestUpdate(mContext.get(), bytes, size));
}

std::string Sha256::finish() {
    unsigned char digest[EVP_MAX_MD_SIZE];
    unsigned size = 0;
    check(EVP_DigestFinal_ex(mContext.get(), digest, &size));
    std::string text;
    for (unsigned i = 0; i < size; ++i) {
        text += "0123456789abcdef"[digest[i] >> 4];
        text += "0123456789abcdef"[digest[i] & 15];
    }
    return text;
}

}  // namespace openssl

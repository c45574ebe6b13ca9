// SPDX-License-Identifier: Apache-2.0
// Certificates made for one test, as PEM files.
#pragma once

#include <openssl/evp.h>
#include <openssl/x509.h>

#include <memory>
#include <string>

namespace hub_test {

struct FreeOpenSsl {
    void operator()(EVP_PKEY* key) const noexcept { EVP_PKEY_free(key); }
    void operator()(X509* certificate) const noexcept { X509_free(certificate); }
};

// An authority that signs itself, or a server whom one has signed.
class Identity {
public:
    // `address`: the IP address or host name it is for. `issuer` null: signs itself. Ends `seconds` from now, which may
    // be in the past.
    Identity(const std::string& address, const Identity* issuer, long seconds = 3600);

    // Throws std::runtime_error.
    void write(const std::string& certificateFile, const std::string& keyFile) const;

private:
    std::unique_ptr<EVP_PKEY, FreeOpenSsl> mKey;
    std::unique_ptr<X509, FreeOpenSsl> mCertificate;
};

}  // namespace hub_test

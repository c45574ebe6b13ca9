// SPDX-License-Identifier: Apache-2.0
// Certificates for one test, as PEM files.
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

// An authority with a self-signed certificate, or a server whose certificate an authority signed.
class Identity {
public:
    // `address`: an IP address or host name. `issuer` null: self-signed. The certificate expires `seconds` from now; a
    // negative value makes an expired certificate.
    Identity(const std::string& address, const Identity* issuer, long seconds = 3600);

    // Throws std::runtime_error.
    void write(const std::string& certificateFile, const std::string& keyFile) const;

private:
    std::unique_ptr<EVP_PKEY, FreeOpenSsl> mKey;
    std::unique_ptr<X509, FreeOpenSsl> mCertificate;
};

}  // namespace hub_test

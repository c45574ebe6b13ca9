// SPDX-License-Identifier: Apache-2.0
#include "Certificates.h"

#include <openssl/pem.h>
#include <openssl/x509v3.h>

#include <atomic>
#include <cctype>
#include <cstdio>
#include <stdexcept>

namespace hub_test {

namespace {

struct Close {
    void operator()(FILE* file) const noexcept { fclose(file); }
    void operator()(X509_EXTENSION* extension) const noexcept { X509_EXTENSION_free(extension); }
};

void check(bool made) {
    if (!made) {
        throw std::runtime_error("cannot create a certificate");
    }
}

void addExtension(X509* certificate, int kind, const std::string& value) {
    const std::unique_ptr<X509_EXTENSION, Close> extension(X509V3_EXT_conf_nid(nullptr, nullptr, kind, value.c_str()));
    check(extension && X509_add_ext(certificate, extension.get(), -1) == 1);
}

void setName(X509_NAME* name, const std::string& text) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(text.c_str());
    check(X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_UTF8, bytes, -1, -1, 0) == 1);
}

std::unique_ptr<FILE, Close> open(const std::string& path) {
    std::unique_ptr<FILE, Close> file(fopen(path.c_str(), "w"));
    check(file != nullptr);
    return file;
}

}  // namespace

Identity::Identity(const std::string& address, const Identity* issuer, long seconds)
    : mKey(EVP_EC_gen("P-256")), mCertificate(X509_new()) {
    static std::atomic<long> serial{1};
    X509* certificate = mCertificate.get();
    check(mKey && certificate != nullptr && X509_set_version(certificate, X509_VERSION_3) == 1);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate), serial++);
    X509_gmtime_adj(X509_getm_notBefore(certificate), seconds - 86400);
    X509_gmtime_adj(X509_getm_notAfter(certificate), seconds);
    setName(X509_get_subject_name(certificate), address);
    const Identity& signer = issuer != nullptr ? *issuer : *this;
    X509_set_issuer_name(certificate, X509_get_subject_name(signer.mCertificate.get()));
    X509_set_pubkey(certificate, mKey.get());
    const bool isNumber = std::isdigit(static_cast<unsigned char>(address[0])) != 0;
    addExtension(certificate, NID_subject_alt_name, (isNumber ? "IP:" : "DNS:") + address);
    addExtension(certificate, NID_basic_constraints, issuer == nullptr ? "critical,CA:TRUE" : "CA:FALSE");
    check(X509_sign(certificate, signer.mKey.get(), EVP_sha256()) > 0);
}

void Identity::write(const std::string& certificateFile, const std::string& keyFile) const {
    check(PEM_write_X509(open(certificateFile).get(), mCertificate.get()) == 1);
    check(PEM_write_PrivateKey(open(keyFile).get(), mKey.get(), nullptr, nullptr, 0, nullptr, nullptr) == 1);
}

}  // namespace hub_test

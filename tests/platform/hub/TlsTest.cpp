// SPDX-License-Identifier: Apache-2.0
// Which certificates are trusted, and how TLS connections fail.
#include <gmock/gmock.h>
#include <openssl/ssl.h>

#include <cstdlib>

#include "Certificates.h"
#include "Support.h"

namespace hub_test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The module itself must refuse, not this machine's configuration of OpenSSL, which is read at the first use of TLS.
const bool isPermissive = setenv("OPENSSL_CONF", PERMISSIVE_CNF, 1) == 0;

class ASecureHub : public WithAHub {
protected:
    std::string file(const std::string& name) const { return folder() + "/" + name; }
    void trust(const Identity& authority) {
        authority.write(file("authority.pem"), file("authority.key"));
        setenv("ORVANE_HUB_CA", file("authority.pem").c_str(), 1);
    }
    void startAs(const Identity& identity, int newestTls = TLS1_3_VERSION) {
        identity.write(file("hub.pem"), file("hub.key"));
        mIdentity = std::make_unique<openssl::Identity>(file("hub.pem"), file("hub.key"));
        ASSERT_EQ(SSL_CTX_set_max_proto_version(mIdentity->get(), newestTls), 1);
        start(0, mIdentity.get());
    }
    // Stops the server before its identity is destroyed.
    void TearDown() override { stop(); }
    int signInSecurely(const std::string& host = "127.0.0.1") { return signIn(openConnection(), uri("https", host)); }

    const Identity mAuthority{"an authority", nullptr};

private:
    std::unique_ptr<openssl::Identity> mIdentity;
};

TEST_F(ASecureHub, SignedByATrustedAuthorityIsAccepted) {
    setFamilies({{{"id", "f"}, {"name", "Home"}}});
    trust(mAuthority);
    startAs(Identity("127.0.0.1", &mAuthority));
    const Connection connection = openConnection();
    EXPECT_EQ(signIn(connection, uri("https")), KS_SERVER_OK);
    EXPECT_THAT(familiesOf(connection), ElementsAre(testing::Pair("f", "Home")));
}

TEST_F(ASecureHub, SignedByItselfIsRefused) {
    startAs(Identity("127.0.0.1", nullptr));
    EXPECT_EQ(signInSecurely(), KS_SERVER_ERROR_TLS);
    EXPECT_THAT(requests(), IsEmpty());
}

TEST_F(ASecureHub, SignedByAnotherAuthorityIsRefused) {
    trust(Identity("another authority", nullptr));
    startAs(Identity("127.0.0.1", &mAuthority));
    EXPECT_EQ(signInSecurely(), KS_SERVER_ERROR_TLS);
}

TEST_F(ASecureHub, WithTls11IsRefused) {
    trust(mAuthority);
    startAs(Identity("127.0.0.1", &mAuthority), TLS1_1_VERSION);
    EXPECT_EQ(signInSecurely(), KS_SERVER_ERROR_TLS);
    EXPECT_THAT(requests(), IsEmpty());
}

TEST_F(ASecureHub, WithTls12IsAccepted) {
    trust(mAuthority);
    startAs(Identity("127.0.0.1", &mAuthority), TLS1_2_VERSION);
    EXPECT_EQ(signInSecurely(), KS_SERVER_OK);
}

TEST_F(ASecureHub, WithAnotherNameIsRefused) {
    trust(mAuthority);
    startAs(Identity("localhost", &mAuthority));
    EXPECT_EQ(signInSecurely(), KS_SERVER_ERROR_TLS);
    EXPECT_EQ(signInSecurely("localhost"), KS_SERVER_OK);
}

TEST_F(ASecureHub, WithAnExpiredCertificateIsRefused) {
    trust(mAuthority);
    startAs(Identity("127.0.0.1", &mAuthority, -60));
    EXPECT_EQ(signInSecurely(), KS_SERVER_ERROR_TLS);
}

TEST_F(ASecureHub, ReceivesNoRequestIfTheAuthoritiesCannotBeRead) {
    setenv("ORVANE_HUB_CA", file("nothing.pem").c_str(), 1);
    startAs(Identity("127.0.0.1", &mAuthority));
    EXPECT_EQ(signInSecurely(), KS_SERVER_ERROR_TLS);
    EXPECT_THAT(requests(), IsEmpty());
}

TEST_F(ASecureHub, WithoutTlsIsRefused) {
    start();
    EXPECT_EQ(signInSecurely(), KS_SERVER_ERROR_TLS);
    EXPECT_THAT(requests(), IsEmpty());
}

TEST_F(ASecureHub, IsUnreachableOverPlainHttp) {
    startAs(Identity("127.0.0.1", nullptr));
    EXPECT_EQ(signIn(openConnection()), KS_SERVER_ERROR_UNREACHABLE);
}

// Depending on its version, curl reports an error or a complete reply, of which only the JSON is incomplete.
TEST_F(ASecureHub, ThatBreaksOffWithoutClosingTlsSendsABadReply) {
    trust(mAuthority);
    startAs(Identity("127.0.0.1", &mAuthority));
    const Connection connection = openConnection();
    EXPECT_EQ(signIn(connection, uri("https")), KS_SERVER_OK);
    setFaults({{{"request", 1}, {"kind", "cut"}}});
    const auto log = logOf([&] { familiesOf(connection, KS_SERVER_ERROR_BAD_ANSWER); });
    EXPECT_THAT(log, ElementsAre(testing::AnyOf(testing::HasSubstr("/v1/families: the reply breaks off: "),
                                                testing::HasSubstr("/v1/families: invalid reply: it is not JSON"))));
    EXPECT_THAT(familiesOf(connection), IsEmpty()) << "the next request succeeds";
}

TEST_F(ASecureHub, ThatClosesWithinARequestFailsOnlyThatRequest) {
    trust(mAuthority);
    startAs(Identity("127.0.0.1", &mAuthority));
    const Connection connection = openConnection();
    EXPECT_EQ(signIn(connection, uri("https")), KS_SERVER_OK);
    for (const char* kind : {"half", "close"}) {
        setFaults({{{"kind", kind}}});
        EXPECT_NE(ks_server_profile_families_family_users_get(connection.get(), "f", std::make_unique<GSList*>().get()),
                  KS_SERVER_OK);
    }
    setFaults(json::array());
    EXPECT_THAT(familiesOf(connection), IsEmpty());
    stop();
    familiesOf(connection, KS_SERVER_ERROR_UNREACHABLE);
}

}  // namespace

}  // namespace hub_test

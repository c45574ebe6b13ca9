// SPDX-License-Identifier: Apache-2.0
// Whose certificate is trusted.
#include <gmock/gmock.h>
#include <openssl/ssl.h>

#include <cstdlib>

#include "Certificates.h"
#include "Support.h"

namespace hub_test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// What is refused is refused by the room, not by this machine's own rules. Read at the first use of TLS.
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
        mIdentity = std::make_unique<sim::hub::Identity>(file("hub.pem"), file("hub.key"));
        ASSERT_EQ(SSL_CTX_set_max_proto_version(mIdentity->get(), newestTls), 1);
        start(0, mIdentity.get());
    }
    // Stops the server before its identity goes.
    void TearDown() override { stop(); }
    int signInSecurely(const std::string& host = "127.0.0.1") { return signIn(openSession(), uri("https", host)); }

    const Identity mAuthority{"an authority", nullptr};

private:
    std::unique_ptr<sim::hub::Identity> mIdentity;
};

TEST_F(ASecureHub, SignedByATrustedAuthorityIsAsked) {
    setFamilies({{{"id", "f"}, {"name", "Home"}}});
    trust(mAuthority);
    startAs(Identity("127.0.0.1", &mAuthority));
    const Session session = openSession();
    EXPECT_EQ(signIn(session, uri("https")), KS_SERVER_OK);
    EXPECT_THAT(familiesOf(session), ElementsAre(testing::Pair("f", "Home")));
}

TEST_F(ASecureHub, SignedByItselfIsRefused) {
    startAs(Identity("127.0.0.1", nullptr));
    EXPECT_EQ(signInSecurely(), KS_SERVER_ERROR_TLS);
    EXPECT_THAT(requests(), IsEmpty());
}

TEST_F(ASecureHub, SignedByAnAuthorityThatOnlyOthersTrustIsRefused) {
    trust(Identity("another authority", nullptr));
    startAs(Identity("127.0.0.1", &mAuthority));
    EXPECT_EQ(signInSecurely(), KS_SERVER_ERROR_TLS);
}

TEST_F(ASecureHub, ThatSpeaksNothingNewerThanTls11IsRefused) {
    trust(mAuthority);
    startAs(Identity("127.0.0.1", &mAuthority), TLS1_1_VERSION);
    EXPECT_EQ(signInSecurely(), KS_SERVER_ERROR_TLS);
    EXPECT_THAT(requests(), IsEmpty());
}

TEST_F(ASecureHub, ThatSpeaksTls12IsAsked) {
    trust(mAuthority);
    startAs(Identity("127.0.0.1", &mAuthority), TLS1_2_VERSION);
    EXPECT_EQ(signInSecurely(), KS_SERVER_OK);
}

TEST_F(ASecureHub, OfAnotherNameIsRefused) {
    trust(mAuthority);
    startAs(Identity("localhost", &mAuthority));
    EXPECT_EQ(signInSecurely(), KS_SERVER_ERROR_TLS);
    EXPECT_EQ(signInSecurely("localhost"), KS_SERVER_OK);
}

TEST_F(ASecureHub, WhoseCertificateHasEndedIsRefused) {
    trust(mAuthority);
    startAs(Identity("127.0.0.1", &mAuthority, -60));
    EXPECT_EQ(signInSecurely(), KS_SERVER_ERROR_TLS);
}

TEST_F(ASecureHub, IsNotAskedWhenTheAuthoritiesCannotBeRead) {
    setenv("ORVANE_HUB_CA", file("nothing.pem").c_str(), 1);
    startAs(Identity("127.0.0.1", &mAuthority));
    EXPECT_EQ(signInSecurely(), KS_SERVER_ERROR_TLS);
    EXPECT_THAT(requests(), IsEmpty());
}

TEST_F(ASecureHub, ThatSpeaksPlainlyIsRefused) {
    start();
    EXPECT_EQ(signInSecurely(), KS_SERVER_ERROR_TLS);
    EXPECT_THAT(requests(), IsEmpty());
}

TEST_F(ASecureHub, AskedPlainlyAnswersNothing) {
    startAs(Identity("127.0.0.1", nullptr));
    EXPECT_EQ(signIn(openSession()), KS_SERVER_ERROR_UNREACHABLE);
}

// Nothing but the JSON itself tells that there was more to come.
TEST_F(ASecureHub, ThatBreaksOffWithoutTheEndingOfTlsGivesABadAnswer) {
    trust(mAuthority);
    startAs(Identity("127.0.0.1", &mAuthority));
    const Session session = openSession();
    EXPECT_EQ(signIn(session, uri("https")), KS_SERVER_OK);
    setFaults({{{"request", 1}, {"kind", "cut"}}});
    const auto log = logOf([&] { familiesOf(session, KS_SERVER_ERROR_BAD_ANSWER); });
    EXPECT_THAT(log, ElementsAre(testing::HasSubstr("/v1/families: the answer is no JSON")));
    EXPECT_THAT(familiesOf(session), IsEmpty()) << "asked again";
}

TEST_F(ASecureHub, ThatLeavesInTheMiddleOfTheTalkEndsNobodyElse) {
    trust(mAuthority);
    startAs(Identity("127.0.0.1", &mAuthority));
    const Session session = openSession();
    EXPECT_EQ(signIn(session, uri("https")), KS_SERVER_OK);
    for (const char* kind : {"half", "close"}) {
        setFaults({{{"kind", kind}}});
        EXPECT_NE(ks_server_profile_families_family_users_get(session.get(), "f", std::make_unique<GSList*>().get()),
                  KS_SERVER_OK);
    }
    setFaults(json::array());
    EXPECT_THAT(familiesOf(session), IsEmpty());
    stop();
    familiesOf(session, KS_SERVER_ERROR_UNREACHABLE);
}

}  // namespace

}  // namespace hub_test

// SPDX-License-Identifier: Apache-2.0
// A hub that fails, is unreachable, or restarts.
#include <gmock/gmock.h>

#include "Support.h"

namespace hub_test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class AHub : public WithAHub {
protected:
    AHub() { setFamilies({{{"id", "f1"}, {"users", {{{"id", "u1"}}}}}, {{"id", "f2"}, {"users", {{{"id", "u2"}}}}}}); }
};

TEST_F(AHub, ThatFailsReturnsTheStatusAndTheNextRequestSucceeds) {
    const Connection connection = signedIn();
    for (const int status : {300, 304, 400, 403, 404, 429, 500, 503, 599}) {
        setFaults({{{"request", 1}, {"kind", "error"}, {"status", status}}});
        familiesOf(connection, status);
        EXPECT_EQ(familiesOf(connection).size(), 2U);
    }
}

TEST_F(AHub, ThatFailsWithAnEndlessOrIncompleteBodyReturnsTheStatusWithOneLogLine) {
    const Connection connection = signedIn();
    for (const char* kind : {"endless", "half"}) {
        setFaults({{{"request", 1}, {"kind", kind}, {"status", 503}}});
        const auto log = logOf([&] { familiesOf(connection, 503); });
        EXPECT_THAT(log, ElementsAre(testing::HasSubstr("/v1/families: HTTP status 503"))) << kind;
        EXPECT_EQ(familiesOf(connection).size(), 2U) << "after " << kind;
    }
}

TEST_F(AHub, ThatReturnsAnUnknownStatusSendsABadReply) {
    const Connection connection = signedIn();
    for (const int status : {204, 600, 999}) {
        setFaults({{{"kind", "error"}, {"status", status}}});
        familiesOf(connection, KS_SERVER_ERROR_BAD_ANSWER);
    }
}

TEST_F(AHub, ThatSendsACompressionBombSendsABadReply) {
    const Connection connection = signedIn();
    for (const int megabytes : {1, 1000}) {
        setFaults({{{"kind", "bomb"}, {"megabytes", megabytes}}});
        familiesOf(connection, KS_SERVER_ERROR_BAD_ANSWER);
    }
}

TEST_F(AHub, ThatFailsAtTheSecondFamilyHasSentTheFirst) {
    const Connection connection = signedIn();
    setFaults({{{"request", 3}, {"kind", "error"}, {"status", 503}}});
    EXPECT_EQ(familiesOf(connection).size(), 2U);
    EXPECT_THAT(usersOf(connection, "f1"), ElementsAre(Pair("u1", "")));
    usersOf(connection, "f2", 503);
}

TEST_F(AHub, ThatRedirectsIsNotFollowed) {
    const Connection connection = signedIn();
    for (const int status : {301, 302, 303, 307, 308}) {
        setFaults({{{"request", 1}, {"kind", "redirect"}, {"status", status}, {"location", "/v1/elsewhere"}}});
        familiesOf(connection, status);
    }
    EXPECT_EQ(requests().size(), 6U);
}

TEST_F(AHub, ThatSendsGarbageOrAnIncompleteOrEndlessReplySendsABadReply) {
    const Connection connection = signedIn();
    for (const char* kind : {"garbage", "half", "endless"}) {
        setFaults({{{"request", 1}, {"kind", kind}}});
        familiesOf(connection, KS_SERVER_ERROR_BAD_ANSWER);
        EXPECT_EQ(familiesOf(connection).size(), 2U) << "after " << kind;
    }
}

TEST_F(AHub, ThatClosesWithoutAReplyIsUnreachable) {
    const Connection connection = signedIn();
    setFaults({{{"kind", "close"}}});
    familiesOf(connection, KS_SERVER_ERROR_UNREACHABLE);
    setFaults(json::array());
    EXPECT_EQ(familiesOf(connection).size(), 2U);
}

TEST_F(AHub, ThatIsDownIsUnreachable) {
    const Connection connection = signedIn();
    stop();
    familiesOf(connection, KS_SERVER_ERROR_UNREACHABLE);
}

TEST_F(AHub, WhoseNameIsUnknownIsUnreachable) {
    EXPECT_EQ(signIn(openConnection(), "https://hub.invalid"), KS_SERVER_ERROR_UNREACHABLE);
}

TEST_F(AHub, ThatRestartedNeedsANewSignIn) {
    const Connection connection = signedIn();
    const int before = port();
    stop();
    start(before);
    familiesOf(connection, 401);
    EXPECT_EQ(signIn(connection), KS_SERVER_OK);
    EXPECT_EQ(familiesOf(connection).size(), 2U);
}

TEST_F(AHub, ServesManyConnectionsAtOnce) {
    start();
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([this] {
            const Connection connection = openConnection();
            EXPECT_EQ(signIn(connection), KS_SERVER_OK);
            for (int round = 0; round < 20; ++round) {
                EXPECT_THAT(usersOf(connection, "f2"), ElementsAre(Pair("u2", "")));
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(requests().size(), 8U * 21U);
}

}  // namespace

}  // namespace hub_test

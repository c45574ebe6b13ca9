// SPDX-License-Identifier: Apache-2.0
// A hub that misbehaves, is not there, or comes back.
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

TEST_F(AHub, ThatFailsTellsTheStatusAndIsAskedAgainNextTime) {
    const Session session = signedIn();
    for (const int status : {300, 304, 400, 403, 404, 429, 500, 503, 599}) {
        setFaults({{{"request", 1}, {"kind", "error"}, {"status", status}}});
        familiesOf(session, status);
        EXPECT_EQ(familiesOf(session).size(), 2U);
    }
}

TEST_F(AHub, ThatFailsWithABigOrAHalfBodyStillTellsTheStatusInOneLine) {
    const Session session = signedIn();
    for (const char* kind : {"endless", "half"}) {
        setFaults({{{"request", 1}, {"kind", kind}, {"status", 503}}});
        const auto log = logOf([&] { familiesOf(session, 503); });
        EXPECT_THAT(log, ElementsAre(testing::HasSubstr("/v1/families: HTTP status 503"))) << kind;
        EXPECT_EQ(familiesOf(session).size(), 2U) << "after " << kind;
    }
}

TEST_F(AHub, ThatGivesAStatusNoHubHasGivesABadAnswer) {
    const Session session = signedIn();
    for (const int status : {204, 600, 999}) {
        setFaults({{{"kind", "error"}, {"status", status}}});
        familiesOf(session, KS_SERVER_ERROR_BAD_ANSWER);
    }
}

TEST_F(AHub, ThatFailsAtTheSecondFamilyHasGivenTheFirst) {
    const Session session = signedIn();
    setFaults({{{"request", 3}, {"kind", "error"}, {"status", 503}}});
    EXPECT_EQ(familiesOf(session).size(), 2U);
    EXPECT_THAT(usersOf(session, "f1"), ElementsAre(Pair("u1", "")));
    usersOf(session, "f2", 503);
}

TEST_F(AHub, ThatSendsElsewhereIsNotFollowed) {
    const Session session = signedIn();
    for (const int status : {301, 302, 303, 307, 308}) {
        setFaults({{{"request", 1}, {"kind", "redirect"}, {"status", status}, {"location", "/v1/elsewhere"}}});
        familiesOf(session, status);
    }
    EXPECT_EQ(requests().size(), 6U);
}

TEST_F(AHub, ThatAnswersGarbageHalfOrWithoutEndGivesABadAnswer) {
    const Session session = signedIn();
    for (const char* kind : {"garbage", "half", "endless"}) {
        setFaults({{{"request", 1}, {"kind", kind}}});
        familiesOf(session, KS_SERVER_ERROR_BAD_ANSWER);
        EXPECT_EQ(familiesOf(session).size(), 2U) << "after " << kind;
    }
}

TEST_F(AHub, ThatClosesWithoutAnAnswerIsUnreachable) {
    const Session session = signedIn();
    setFaults({{{"kind", "close"}}});
    familiesOf(session, KS_SERVER_ERROR_UNREACHABLE);
    setFaults(json::array());
    EXPECT_EQ(familiesOf(session).size(), 2U);
}

TEST_F(AHub, ThatIsDownIsUnreachable) {
    const Session session = signedIn();
    stop();
    familiesOf(session, KS_SERVER_ERROR_UNREACHABLE);
}

TEST_F(AHub, ThatHasNoNameIsUnreachable) {
    EXPECT_EQ(signIn(openSession(), "https://hub.invalid"), KS_SERVER_ERROR_UNREACHABLE);
}

TEST_F(AHub, ThatWasRestartedWantsASignIn) {
    const Session session = signedIn();
    const int before = port();
    stop();
    start(before);
    familiesOf(session, 401);
    EXPECT_EQ(signIn(session), KS_SERVER_OK);
    EXPECT_EQ(familiesOf(session).size(), 2U);
}

TEST_F(AHub, AnswersManySessionsAtOnce) {
    start();
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([this] {
            const Session session = openSession();
            EXPECT_EQ(signIn(session), KS_SERVER_OK);
            for (int round = 0; round < 20; ++round) {
                EXPECT_THAT(usersOf(session, "f2"), ElementsAre(Pair("u2", "")));
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

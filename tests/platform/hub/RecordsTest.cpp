// SPDX-License-Identifier: Apache-2.0
// How texts of any length fit into records of fixed size.
#include "hub/Records.h"

#include <gmock/gmock.h>

#include "Support.h"

namespace hub_test {

namespace {

using testing::ElementsAre;
using testing::Pair;

class ALongText : public WithAHub {};

std::string repeated(const std::string& text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

TEST(ABeginningOfAText, EndsBetweenCharacters) {
    const struct {
        std::string text;
        std::size_t bytes, length;
    } cases[] = {
        {"", 4, 0},
        {"abc", 4, 3},
        {"abcd", 4, 3},
        {"abcd", 1, 0},
        {"abü", 5, 4},
        {"abü", 4, 2},
        {"abü", 3, 2},
        {"ab€", 6, 5},
        {"ab€", 5, 2},
        {"ab€", 4, 2},
        {"a\U0001f373b", 6, 5},
        {"a\U0001f373b", 5, 1},
        {"a\U0001f373b", 4, 1},
        {"a\U0001f373b", 3, 1},
        {"\U0001f373", 4, 0},
        {"€€", 4, 3},
    };
    for (const auto& [text, bytes, length] : cases) {
        EXPECT_EQ(hub::lengthThatFits(text, bytes), length) << text << " in " << bytes;
    }
}

TEST_F(ALongText, ThatIsANameIsCutBetweenCharacters) {
    // 255 bytes fit: 85 characters of three bytes exactly, 63 of four, 127 of two after a letter.
    const std::string three = repeated("€", 100), four = repeated("\U0001f373", 100), two = "a" + repeated("ü", 200);
    setFamilies({{{"id", "1"}, {"name", three}}, {{"id", "2"}, {"name", four}}, {{"id", "3"}, {"name", two}}});
    EXPECT_THAT(familiesOf(signedIn()), ElementsAre(Pair("1", repeated("€", 85)), Pair("2", repeated("\U0001f373", 63)),
                                                    Pair("3", "a" + repeated("ü", 127))));
}

TEST_F(ALongText, ThatIsAUsersNameMayBeLonger) {
    setFamilies({{{"id", "f"}, {"users", {{{"id", "u"}, {"name", repeated("ü", 2000)}}}}}});
    EXPECT_THAT(usersOf(signedIn(), "f"), ElementsAre(Pair("u", repeated("ü", 511))));
}

TEST_F(ALongText, ThatIsAnIdIsNeverCut) {
    const std::string family(255, 'f'), user(1023, 'u');
    setFamilies({{{"id", family}, {"users", {{{"id", user}}}}}, {{"id", "x"}, {"users", {{{"id", user + "u"}}}}}});
    const Connection connection = signedIn();
    EXPECT_THAT(familiesOf(connection), ElementsAre(Pair(family, ""), Pair("x", "")));
    EXPECT_THAT(usersOf(connection, family), ElementsAre(Pair(user, "")));
    usersOf(connection, "x", KS_SERVER_ERROR_BAD_ANSWER);
    setFamilies({{{"id", family + "f"}}});
    familiesOf(connection, KS_SERVER_ERROR_BAD_ANSWER);
}

}  // namespace

}  // namespace hub_test

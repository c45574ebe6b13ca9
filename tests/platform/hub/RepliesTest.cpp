// SPDX-License-Identifier: Apache-2.0
// What the module reads from the text of a reply.
#include "hub/Replies.h"

#include <gmock/gmock.h>

#include "Support.h"

namespace hub_test {

namespace {

class AReply : public WithAHub {};

constexpr std::size_t kLongestId = 8;

std::string listOf(const std::string& elements) {
    return R"({"users": [)" + elements + "]}";
}

TEST(AListFromTheHub, IsRefusedCompletelyIfAnyPartIsInvalid) {
    const std::string replies[] = {"",
                                   " ",
                                   "null",
                                   "[]",
                                   "\"users\"",
                                   "17",
                                   "{",
                                   "{}",
                                   R"({"users": null})",
                                   R"({"users": {}})",
                                   R"({"users": [{"id": "a"}])",
                                   R"({"families": [{"id": "a"}]})",
                                   listOf("null"),
                                   listOf("\"a\""),
                                   listOf("[]"),
                                   listOf("{}"),
                                   listOf(R"({"name": "Ann"})"),
                                   listOf(R"({"id": ""})"),
                                   listOf(R"({"id": 17})"),
                                   listOf(R"({"id": null})"),
                                   listOf(R"({"id": "a\u0000b"})"),
                                   listOf(R"({"id": "too long!"})"),
                                   listOf(R"({"id": "a"}, {})"),
                                   listOf(R"({"id": "a"},)"),
                                   listOf("{\"id\": \"\xff\"}"),
                                   listOf("{\"id\": \"a\", \"name\": \"\xc3\"}"),
                                   listOf(R"({"id": "a"})") + "x",
                                   R"({"users": 1e999})"};
    for (const std::string& reply : replies) {
        EXPECT_THROW(hub::readList(reply, "users", kLongestId), std::exception) << reply;
    }
}

TEST(AListFromTheHub, MayContainOtherMembers) {
    const std::string reply = R"({"version": 2, "users": [{"age": 7, "id": "12345678", "name": "Ann", "tags": [1]}]})";
    const auto users = hub::readList(reply, "users", kLongestId);
    ASSERT_EQ(users.size(), 1U);
    EXPECT_EQ(users[0].id, "12345678");
    EXPECT_EQ(users[0].name, "Ann");
}

TEST(AListFromTheHub, HasAnEmptyNameInPlaceOfOneThatIsNotAText) {
    for (const char* element : {R"({"id": "a"})", R"({"id": "a", "name": null})", R"({"id": "a", "name": ["Ann"]})"}) {
        EXPECT_EQ(hub::readList(listOf(element), "users", kLongestId).at(0).name, "") << element;
    }
}

TEST(AListFromTheHub, IsRefusedIfItIsTooLong) {
    std::string elements = R"({"id": "0"})";
    for (int i = 1; i < 10000; ++i) {
        elements += R"(,{"id": "0"})";
    }
    EXPECT_EQ(hub::readList(listOf(elements), "users", kLongestId).size(), 10000U);
    EXPECT_THROW(hub::readList(listOf(elements + R"(,{"id": "0"})"), "users", kLongestId), std::exception);
}

TEST(ASessionToken, IsATextWithoutControlCharacters) {
    EXPECT_EQ(hub::readSessionToken(R"({"session_token": "a b.c", "more": 1})"), "a b.c");
    for (const char* reply : {"", "[]", "{}", R"({"session_token": ""})", R"({"session_token": 1})",
                              R"({"session_token": "a\r\nb"})", R"({"session_token": "\u0000"})"}) {
        EXPECT_THROW(hub::readSessionToken(reply), std::exception) << reply;
    }
}

TEST_F(AReply, ThatIsInvalidIsLoggedInOneLineWithoutItsContents) {
    const Connection connection = signedIn();
    const std::string deep = std::string(200000, '[') + std::string(200000, ']');
    const std::pair<std::string, std::string> replies[] = {
        {"{\"families\": [{\"id\": \"secret", "it is not JSON"},
        {R"({"families": [{"name": "secret"}]})", "an id is missing"},
        {R"({"users": ["secret"]})", "it has no list of families"},
        {R"({"secret": )" + deep + "}", "JSON nested too deeply"},
    };
    for (const auto& [body, reason] : replies) {
        replyWith(body);
        const auto log = logOf([&] { familiesOf(connection, KS_SERVER_ERROR_BAD_ANSWER); });
        ASSERT_EQ(log.size(), 1U) << reason;
        EXPECT_THAT(log[0], testing::HasSubstr("/v1/families: invalid reply: " + reason));
        EXPECT_THAT(log[0], testing::Not(testing::HasSubstr("secret")));
    }
}

TEST_F(AReply, OfMoreThanAMegabyteIsRefused) {
    const Connection connection = signedIn();
    const std::string most = R"({"families": []})";
    replyWith(most + std::string((1 << 20) - most.size(), ' '));
    familiesOf(connection);
    replyWith(most + std::string((1 << 20) + 1 - most.size(), ' '));
    const auto log = logOf([&] { familiesOf(connection, KS_SERVER_ERROR_BAD_ANSWER); });
    EXPECT_THAT(log, testing::ElementsAre(testing::HasSubstr("more than 1048576 bytes")));
}

}  // namespace

}  // namespace hub_test

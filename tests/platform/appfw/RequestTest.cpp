// SPDX-License-Identifier: Apache-2.0
// Requests between the service and other applications, and their replies.
#include <gtest/gtest.h>

#include <string>

#include "OtherApp.h"
#include "RunningService.h"

namespace {

constexpr char APP_ID[] = "com.example.other";

Extra one(const std::string& value) {
    return {false, {value}};
}

// The extras that the service adds to each request and reply.
void expectExtras(const Extras& extras) {
    ASSERT_EQ(extras.size(), 2U);
    EXPECT_FALSE(extras.at("word").array);
    EXPECT_EQ(extras.at("word").values, std::vector<std::string>{"yes"});
    EXPECT_TRUE(extras.at("list").array);
    EXPECT_EQ(extras.at("list").values, (std::vector<std::string>{"a", "", "\xff"}));
}

class ARequest : public testing::Test {
protected:
    // Makes the service send a request to an application.
    bool makeServiceSend(const std::string& app, const std::string& operation) {
        return mSender.ask(SERVICE_ID, "ask", {{"app", one(app)}, {"do", one(operation)}, {"uri", one("file:///x")}});
    }

    RunningService mService;
    OtherApp mSender;
    OtherApp mApp{APP_ID};
};

TEST_F(ARequest, ArrivesInOrderWithExtrasOfAnyBytes) {
    ASSERT_TRUE(
        mApp.ask(SERVICE_ID, "first", {{"list", {true, {"a", "b"}}}, {"none", {true, {}}}, {"word", one("\xff\x01")}}));
    ASSERT_TRUE(mApp.ask(SERVICE_ID, "second"));
    EXPECT_EQ(mService.line(), "operation first");
    EXPECT_EQ(mService.line(), "list[2] a b");
    EXPECT_EQ(mService.line(), "none[0]");
    EXPECT_EQ(mService.line(), "word=\xff\x01");
    EXPECT_EQ(mService.line(), "operation second");
}

TEST_F(ARequest, ReceivesAReplyWithSingleAndArrayExtras) {
    ASSERT_TRUE(mApp.ask(SERVICE_ID, "answer", {}, "the token"));
    const OtherApp::Answer answer = mApp.answered();
    EXPECT_EQ(answer.token, "the token");
    EXPECT_EQ(answer.result, -2);
    expectExtras(answer.extras);
    EXPECT_EQ(mService.lineWith("answered"), "answered 0");
}

TEST_F(ARequest, WithoutATokenCannotReceiveAReply) {
    ASSERT_TRUE(mApp.ask(SERVICE_ID, "answer"));
    EXPECT_EQ(mService.lineWith("answered"), "answered -22");
}

TEST_F(ARequest, FromTheServiceContainsItsOperationUriAndExtras) {
    ASSERT_TRUE(makeServiceSend(APP_ID, "greet"));
    const OtherApp::Asked asked = mApp.asked();
    EXPECT_EQ(asked.operation, "greet");
    EXPECT_EQ(asked.uri, "file:///x");
    expectExtras(asked.extras);
    EXPECT_EQ(mService.lineWith("sent"), "sent 0");
}

TEST_F(ARequest, AcceptsOneReplyToItsOwnToken) {
    ASSERT_TRUE(makeServiceSend(APP_ID, "first"));
    const OtherApp::Asked first = mApp.asked();
    OtherApp::Asked guessed = first;
    guessed.token = "guessed";
    ASSERT_TRUE(mApp.reply(guessed, -1));
    ASSERT_TRUE(mApp.reply(first, 0, {{"empty", {true, {}}}, {"mood", one("good")}}));
    ASSERT_TRUE(mApp.reply(first, -1));
    EXPECT_EQ(mService.lineWith("reply"), "reply 0 to first");
    EXPECT_EQ(mService.line(), "empty[0]");
    EXPECT_EQ(mService.line(), "mood=good");
    ASSERT_TRUE(makeServiceSend(APP_ID, "second"));
    ASSERT_TRUE(mApp.reply(mApp.asked(), -2));
    EXPECT_EQ(mService.lineWith("reply"), "reply -2 to second");
}

TEST_F(ARequest, FailsIfItsReplyHasAnUnknownResult) {
    ASSERT_TRUE(makeServiceSend(APP_ID, "greet"));
    ASSERT_TRUE(mApp.reply(mApp.asked(), 77));
    EXPECT_EQ(mService.lineWith("reply"), "reply -1 to greet");
}

TEST_F(ARequest, FailsWhenItsReceiverLeavesTheBusBeforeItReplies) {
    ASSERT_TRUE(makeServiceSend(APP_ID, "greet"));
    EXPECT_EQ(mService.lineWith("sent"), "sent 0");
    mApp.leave();
    EXPECT_EQ(mService.lineWith("reply"), "reply -1 to greet");
}

TEST_F(ARequest, ToAnApplicationThatIsNotInstalledFailsAndIsLogged) {
    ASSERT_TRUE(makeServiceSend("com.example.nowhere", "greet"));
    EXPECT_NE(mService.lineWith("com.example.nowhere is not installed"), "");
    EXPECT_EQ(mService.lineWith("sent"), "sent -101");
}

TEST_F(ARequest, ToAnInvalidApplicationIdFailsAndIsLogged) {
    ASSERT_TRUE(makeServiceSend("not an id", "greet"));
    EXPECT_NE(mService.lineWith("not an id is not installed"), "");
    EXPECT_EQ(mService.lineWith("sent"), "sent -101");
}

}  // namespace

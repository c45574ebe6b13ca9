// SPDX-License-Identifier: Apache-2.0
// Each fault of the engine is told by its own code on the caller's thread.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "EngineRoom.h"

namespace {

using nuance::IWakeupListener;
using testing::ElementsAre;
using testing::IsEmpty;

class AnEngine : public testing::Test {
protected:
    bool loadText(const std::string& text) {
        const ConfigFolder folder(text);
        return mRoom.ctx->Initialize(folder.path(), "vocon_config.json");
    }

    EngineRoom mRoom;
};

TEST_F(AnEngine, WithoutItsFolderWarnsOfTheFile) {
    EXPECT_FALSE(mRoom.ctx->Initialize("/nowhere/at/all//", "vocon_config.json"));
    EXPECT_THAT(mRoom.witness.warnings, ElementsAre(IWakeupListener::FILE_OPEN_FAILED));
    EXPECT_THAT(mRoom.witness.details[0], testing::HasSubstr("/nowhere/at/all"));
}

TEST_F(AnEngine, WithoutItsFileWarnsOfTheFile) {
    const ConfigFolder folder("{}");
    EXPECT_FALSE(mRoom.ctx->Initialize(folder.path(), "other.json"));
    EXPECT_THAT(mRoom.witness.warnings, ElementsAre(IWakeupListener::FILE_OPEN_FAILED));
}

TEST_F(AnEngine, WithTextThatIsNoJsonReportsTheParser) {
    for (const char* text : {"", "{\"phrase\": ", "[1,2]", "\"hey\"", "{} trailing", "\xff\xfe"}) {
        mRoom.witness.errors.clear();
        EXPECT_FALSE(loadText(text)) << text;
        EXPECT_THAT(mRoom.witness.errors, ElementsAre(IWakeupListener::ERROR_FROM_CONFIG_PARSER)) << text;
    }
}

TEST_F(AnEngine, WithJsonNestedBeyondReasonReportsTheParser) {
    EXPECT_FALSE(loadText("{\"phrase\":" + std::string(100000, '[') + std::string(100000, ']') + "}"));
    EXPECT_THAT(mRoom.witness.errors, ElementsAre(IWakeupListener::ERROR_FROM_CONFIG_PARSER));
}

TEST_F(AnEngine, WithoutAPhraseWarnsOfTheMissingWord) {
    EXPECT_FALSE(loadText("{}"));
    EXPECT_THAT(mRoom.witness.warnings, ElementsAre(IWakeupListener::WAKEUP_WORD_NOT_SET));
}

TEST_F(AnEngine, WithAnUnknownKeyWarnsAndWorks) {
    EXPECT_TRUE(loadText(R"({"phrase": "hey you", "treshold": 1e-20})"));
    EXPECT_THAT(mRoom.witness.warnings, ElementsAre(IWakeupListener::INVALID_CONFIG_KEY));
    EXPECT_EQ(mRoom.witness.details[0], "treshold");
}

TEST_F(AnEngine, WithAValueOutOfRangeWarnsAndTakesTheDefault) {
    for (const char* value : {"0", "-1", "2", "1e-90", "\"1e-20\"", "null", "[1]"}) {
        mRoom.witness.warnings.clear();
        EXPECT_TRUE(loadText(std::string(R"({"phrase": "hey you", "threshold": )") + value + "}")) << value;
        EXPECT_THAT(mRoom.witness.warnings, ElementsAre(IWakeupListener::INVALID_CONFIG_VALUE)) << value;
    }
}

TEST_F(AnEngine, WithAPronunciationOfNoSuchPhonesLooksTheWordUp) {
    EXPECT_TRUE(loadText(R"({"phrase": "hey you", "pronunciations": {"hey": ["XX QQ"]}})"));
    EXPECT_THAT(mRoom.witness.warnings, ElementsAre(IWakeupListener::INVALID_CONFIG_VALUE));
}

TEST_F(AnEngine, WithoutAnAcousticModelReportsIt) {
    EXPECT_FALSE(loadText(R"({"phrase": "hey you", "model": "/nowhere"})"));
    EXPECT_THAT(mRoom.witness.errors, ElementsAre(IWakeupListener::COULD_NOT_FIND_ACMOD));
}

TEST_F(AnEngine, WithoutADictionaryForAWordItMustLookUpReportsIt) {
    EXPECT_FALSE(loadText(R"({"phrase": "hey you", "dictionary": "/nowhere.dict"})"));
    EXPECT_THAT(mRoom.witness.errors, ElementsAre(IWakeupListener::COULD_NOT_FIND_CLC));
}

TEST_F(AnEngine, NeedsNoDictionaryWhenEveryWordIsGivenItsSound) {
    EXPECT_TRUE(loadText(
        R"({"phrase": "hey you", "dictionary": "/nowhere", "pronunciations": {"hey": ["HH EY"], "you": ["Y UW"]}})"));
    EXPECT_THAT(mRoom.witness.errors, IsEmpty());
}

TEST_F(AnEngine, WithAWordThatNobodyCanSayReportsItsData) {
    EXPECT_FALSE(loadText(R"({"phrase": "hey qzxqzx"})"));
    EXPECT_THAT(mRoom.witness.errors, ElementsAre(IWakeupListener::WRONG_VOCON_DATA));
}

TEST_F(AnEngine, NotInitialisedWarnsWhenItIsStartedOrCancelled) {
    mRoom.listen();
    EXPECT_FALSE(mRoom.ctx->IsListening());
    mRoom.ctx->CancelListening();
    EXPECT_THAT(mRoom.witness.warnings,
                ElementsAre(IWakeupListener::NOT_INITIALIZED, IWakeupListener::NOT_INITIALIZED));
}

TEST_F(AnEngine, WithoutAudioInputWarnsWhenItIsStarted) {
    ASSERT_TRUE(mRoom.load("ENU", "quorbit"));
    mRoom.ctx->StartListening();
    EXPECT_FALSE(mRoom.ctx->IsListening());
    EXPECT_THAT(mRoom.witness.warnings, ElementsAre(IWakeupListener::AUDIOIN_NOT_ATTACHED));
}

TEST_F(AnEngine, StartedTwiceWarns) {
    ASSERT_TRUE(mRoom.load("ENU", "quorbit"));
    mRoom.listen();
    mRoom.ctx->StartListening();
    EXPECT_TRUE(mRoom.ctx->IsListening());
    EXPECT_THAT(mRoom.witness.warnings, ElementsAre(IWakeupListener::ALREADY_LISTENING));
}

TEST_F(AnEngine, InitialisedWhileListeningReportsItsState) {
    ASSERT_TRUE(mRoom.load("ENU", "quorbit"));
    mRoom.listen();
    EXPECT_FALSE(mRoom.load("ENU", "vexal"));
    EXPECT_TRUE(mRoom.ctx->IsListening());
    EXPECT_THAT(mRoom.witness.errors, ElementsAre(IWakeupListener::NOT_IN_PROPER_STATE));
}

TEST_F(AnEngine, WhoseAudioInputDoesNotStartReportsItAndStops) {
    ASSERT_TRUE(mRoom.load("ENU", "quorbit"));
    mRoom.feed.startResult = -1;
    mRoom.listen();
    ASSERT_TRUE(mRoom.witness.waitFor([&] { return !mRoom.witness.errors.empty(); }));
    EXPECT_THAT(mRoom.witness.errors, ElementsAre(IWakeupListener::ERROR_FROM_USER_CALLBACK));
    EXPECT_FALSE(mRoom.ctx->IsListening());
}

TEST_F(AnEngine, WithoutAListenerKeepsItsFaultsToItself) {
    mRoom.ctx->AttachListener(nullptr);
    EXPECT_FALSE(mRoom.ctx->Initialize("/nowhere", "x"));
    mRoom.ctx->StartListening();
    EXPECT_FALSE(mRoom.ctx->IsListening());
    EXPECT_THAT(mRoom.witness.warnings, IsEmpty());
}

}  // namespace

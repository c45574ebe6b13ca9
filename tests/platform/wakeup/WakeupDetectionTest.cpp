// SPDX-License-Identifier: Apache-2.0
// The engine on the installed data and synthesised voices.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "EngineRoom.h"

namespace {

using speech::join;
using speech::noise;
using speech::say;
using speech::silence;

const std::vector<std::string> kFolders{"KOK", "ENU", "ENG", "GED", "ITI", "FRF"};

// A minute of talk by four people, with words that sound alike.
const std::vector<std::string> kTalk{
    "The kitchen is quiet this morning, and the coffee is almost ready. Could you hand me the orange juice from the "
    "bottom shelf? We should buy bread, eggs, butter and a little cheese before the weekend. The weather forecast says "
    "that it will rain on Thursday, so we had better take an umbrella.",
    "Hey, what do you think about the orbit of the new satellite? My brother called yesterday and said that the train "
    "was late again. Hey Victor, the vexing question is who left the window open all night.",
    "The quarterback took a quick bite of the sandwich and ran outside. Did you water the plants in the corner of the "
    "living room? I have never seen such a beautiful garden in my whole life. They say the quarter bit was worth "
    "twelve "
    "cents in those days.",
    "Please remember to lock the door when you leave, and hand the keys to our neighbour. Hey, welcome to our house, "
    "it "
    "is so good to see you all again. We can sell the extra bread at the market."};

class EveryFolder : public testing::TestWithParam<std::tuple<std::string, std::string>> {
protected:
    std::string word() const { return std::get<1>(GetParam()); }
    bool load() { return mRoom.load(std::get<0>(GetParam()), word()); }

    EngineRoom mRoom;
};

TEST_P(EveryFolder, HearsItsWordFromEveryVoice) {
    ASSERT_TRUE(load());
    for (const std::string& voice : speech::kVoices) {
        mRoom.witness.wakeups.clear();
        mRoom.listen();
        mRoom.feed.add(join({silence(1), say(voice, "hey " + word()), silence(1)}));
        ASSERT_TRUE(mRoom.witness.waitForWakeups(1)) << voice;
        EXPECT_EQ(mRoom.witness.wakeups[0].word, "hey " + word());
        EXPECT_GE(mRoom.witness.wakeups[0].level, 0);
        EXPECT_LE(mRoom.witness.wakeups[0].level, 100);
        EXPECT_FALSE(mRoom.ctx->IsListening());
        mRoom.ctx->AttachAudioIn(nullptr);
    }
    EXPECT_THAT(mRoom.witness.errors, testing::IsEmpty());
    EXPECT_THAT(mRoom.witness.warnings, testing::IsEmpty());
}

TEST_P(EveryFolder, StaysQuietOnAMinuteOfOtherSpeech) {
    ASSERT_TRUE(load());
    mRoom.listen();
    for (std::size_t i = 0; i < kTalk.size(); ++i) {
        mRoom.feed.add(join({silence(0.5), say(speech::kVoices[i], kTalk[i])}));
    }
    ASSERT_TRUE(mRoom.feed.waitUntilEmpty());
    EXPECT_THAT(mRoom.witness.wakeups, testing::IsEmpty());
    EXPECT_TRUE(mRoom.ctx->IsListening());
}

INSTANTIATE_TEST_SUITE_P(Installed, EveryFolder,
                         testing::Combine(testing::ValuesIn(kFolders), testing::Values("quorbit", "vexal")),
                         [](const auto& test) { return std::get<0>(test.param) + "_" + std::get<1>(test.param); });

class AWakeUpWord : public testing::Test {
protected:
    // Whether the word is heard in these samples, with a second of silence behind them to be sure of the answer.
    bool isHeardIn(const speech::Samples& samples) {
        mRoom.feed.add(join({samples, silence(1)}));
        mRoom.listen();
        const bool heard = mRoom.feed.waitUntilEmpty() && !mRoom.witness.wakeups.empty();
        return heard;
    }

    EngineRoom mRoom;
};

TEST_F(AWakeUpWord, IsHeardOverTheNoiseOfAKitchen) {
    ASSERT_TRUE(mRoom.load("ENU", "quorbit"));
    speech::Samples sound = join({silence(2), say("rms", "hey quorbit"), silence(1)});
    const speech::Samples hiss = noise(10, 60);
    for (std::size_t i = 0; i < sound.size(); ++i) {
        sound[i] = static_cast<int16_t>(sound[i] + hiss[i]);
    }
    mRoom.feed.add(sound);
    mRoom.listen();
    EXPECT_TRUE(mRoom.witness.waitForWakeups(1));
}

TEST_F(AWakeUpWord, IsHeardWithTalkRightBeforeAndBehindIt) {
    ASSERT_TRUE(mRoom.load("ENU", "vexal"));
    mRoom.feed.add(join({say("slt", "the coffee is ready"), say("slt", "hey vexal"), say("slt", "open the notes")}));
    mRoom.listen();
    ASSERT_TRUE(mRoom.witness.waitForWakeups(1));
}

TEST_F(AWakeUpWord, OfTheOtherKindIsNotAnswered) {
    ASSERT_TRUE(mRoom.load("ENU", "quorbit"));
    EXPECT_FALSE(isHeardIn(join({silence(1), say("awb", "hey vexal"), silence(1), say("slt", "hey vexal")})));
}

TEST_F(AWakeUpWord, WithoutItsFirstWordIsNotAnswered) {
    ASSERT_TRUE(mRoom.load("ENU", "vexal"));
    EXPECT_FALSE(isHeardIn(join({silence(1), say("rms", "vessel"), silence(1), say("slt", "hey")})));
}

TEST_F(AWakeUpWord, IsNotHeardInSilenceAndNoise) {
    ASSERT_TRUE(mRoom.load("ENU", "quorbit"));
    EXPECT_FALSE(isHeardIn(join({silence(3), noise(3, 100), silence(1), noise(5, 3000)})));
}

TEST_F(AWakeUpWord, IsMoreCertainTheClearerItIs) {
    ASSERT_TRUE(mRoom.load("ENU", "quorbit"));
    mRoom.feed.add(join({silence(1), say("kal16", "hey quorbit"), silence(1)}));
    mRoom.listen();
    ASSERT_TRUE(mRoom.witness.waitForWakeups(1));
    mRoom.ctx->AttachAudioIn(nullptr);
    mRoom.listen();
    mRoom.feed.add(join({silence(1), say("slt", "hey quorbit"), silence(1)}));
    ASSERT_TRUE(mRoom.witness.waitForWakeups(2));
    EXPECT_GT(mRoom.witness.wakeups[0].level, mRoom.witness.wakeups[1].level);
}

}  // namespace

// SPDX-License-Identifier: Apache-2.0
// The engine with the installed data and synthesized voices.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "EngineHarness.h"

namespace {

using speech::join;
using speech::noise;
using speech::say;
using speech::silence;

const std::vector<std::string> kFolders{"KOK", "ENU", "ENG", "GED", "ITI", "FRF"};

// A minute of speech by four people, with words that sound like a wake word.
const std::vector<std::string> kOtherSpeech{
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

class EveryInstalledWakeWord : public testing::TestWithParam<std::tuple<std::string, std::string>> {
protected:
    std::string word() const { return std::get<1>(GetParam()); }
    bool load() { return mEngine.load(std::get<0>(GetParam()), word()); }

    EngineHarness mEngine;
};

TEST_P(EveryInstalledWakeWord, IsDetectedInEveryVoice) {
    ASSERT_TRUE(load());
    for (const std::string& voice : speech::kVoices) {
        mEngine.listener.wakeups.clear();
        mEngine.listen();
        mEngine.feed.add(join({silence(1), say(voice, "hey " + word()), silence(1)}));
        ASSERT_TRUE(mEngine.listener.waitForWakeups(1)) << voice;
        EXPECT_EQ(mEngine.listener.wakeups[0].word, "hey " + word());
        EXPECT_GE(mEngine.listener.wakeups[0].level, 0);
        EXPECT_LE(mEngine.listener.wakeups[0].level, 100);
        EXPECT_FALSE(mEngine.ctx->IsListening());
        mEngine.ctx->AttachAudioIn(nullptr);
    }
    EXPECT_THAT(mEngine.listener.errors, testing::IsEmpty());
    EXPECT_THAT(mEngine.listener.warnings, testing::IsEmpty());
}

TEST_P(EveryInstalledWakeWord, IsNotDetectedInAMinuteOfOtherSpeech) {
    ASSERT_TRUE(load());
    mEngine.listen();
    for (std::size_t i = 0; i < kOtherSpeech.size(); ++i) {
        mEngine.feed.add(join({silence(0.5), say(speech::kVoices[i], kOtherSpeech[i])}));
    }
    ASSERT_TRUE(mEngine.feed.waitUntilEmpty());
    EXPECT_THAT(mEngine.listener.wakeups, testing::IsEmpty());
    EXPECT_TRUE(mEngine.ctx->IsListening());
}

INSTANTIATE_TEST_SUITE_P(Installed, EveryInstalledWakeWord,
                         testing::Combine(testing::ValuesIn(kFolders), testing::Values("quorbit", "vexal")),
                         [](const auto& test) { return std::get<0>(test.param) + "_" + std::get<1>(test.param); });

class AWakeWord : public testing::Test {
protected:
    // A second of silence after the samples makes sure that the engine has searched all of them.
    bool isDetectedIn(const speech::Samples& samples) {
        mEngine.feed.add(join({samples, silence(1)}));
        mEngine.listen();
        EXPECT_TRUE(mEngine.feed.waitUntilEmpty());
        return !mEngine.listener.wakeups.empty();
    }

    EngineHarness mEngine;
};

TEST_F(AWakeWord, IsDetectedInTheNoiseOfAKitchen) {
    ASSERT_TRUE(mEngine.load("ENU", "quorbit"));
    speech::Samples sound = join({silence(2), say("rms", "hey quorbit"), silence(1)});
    const speech::Samples hiss = noise(10, 60);
    for (std::size_t i = 0; i < sound.size(); ++i) {
        sound[i] = static_cast<int16_t>(sound[i] + hiss[i]);
    }
    mEngine.feed.add(sound);
    mEngine.listen();
    EXPECT_TRUE(mEngine.listener.waitForWakeups(1));
}

TEST_F(AWakeWord, IsDetectedBetweenOtherSentences) {
    ASSERT_TRUE(mEngine.load("ENU", "vexal"));
    mEngine.feed.add(join({say("slt", "the coffee is ready"), say("slt", "hey vexal"), say("slt", "open the notes")}));
    mEngine.listen();
    ASSERT_TRUE(mEngine.listener.waitForWakeups(1));
}

TEST_F(AWakeWord, ThatIsNotTheConfiguredOneIsNotDetected) {
    ASSERT_TRUE(mEngine.load("ENU", "quorbit"));
    EXPECT_FALSE(isDetectedIn(join({silence(1), say("awb", "hey vexal"), silence(1), say("slt", "hey vexal")})));
}

TEST_F(AWakeWord, WithoutOneOfItsWordsIsNotDetected) {
    ASSERT_TRUE(mEngine.load("ENU", "vexal"));
    EXPECT_FALSE(isDetectedIn(join({silence(1), say("rms", "vessel"), silence(1), say("slt", "hey")})));
}

TEST_F(AWakeWord, IsNotDetectedInSilenceAndNoise) {
    ASSERT_TRUE(mEngine.load("ENU", "quorbit"));
    EXPECT_FALSE(isDetectedIn(join({silence(3), noise(3, 100), silence(1), noise(5, 3000)})));
}

TEST_F(AWakeWord, HasAHigherConfidenceTheClearerItIs) {
    ASSERT_TRUE(mEngine.load("ENU", "quorbit"));
    mEngine.feed.add(join({silence(1), say("kal16", "hey quorbit"), silence(1)}));
    mEngine.listen();
    ASSERT_TRUE(mEngine.listener.waitForWakeups(1));
    mEngine.ctx->AttachAudioIn(nullptr);
    mEngine.listen();
    mEngine.feed.add(join({silence(1), say("slt", "hey quorbit"), silence(1)}));
    ASSERT_TRUE(mEngine.listener.waitForWakeups(2));
    EXPECT_GT(mEngine.listener.wakeups[0].level, mEngine.listener.wakeups[1].level);
}

}  // namespace

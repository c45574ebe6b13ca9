// SPDX-License-Identifier: Apache-2.0
// The sentences of the installed file and their meanings.
#include "voice/Understanding.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace {

using nlohmann::json;

class TheInstalledSentences : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(voice::readSentenceFile(ORVANE_DATA "/voice/data/preloaded_commands.txt", mCommands));
    }
    json understand(const std::string& sentence) {
        const auto intent = voice::understand(sentence, mCommands, mDialogue);
        return intent ? json::parse(voice::toJson(*intent, sentence)) : json();
    }

    voice::SentenceFile mCommands;
    voice::Dialogue mDialogue;
};

TEST_F(TheInstalledSentences, HaveTheExpectedMeanings) {
    const char* const general = "com.generalrecipe.app";
    struct {
        const char* sentence;
        const char* agent;
        const char* action;
        const char* package;
    } table[] = {
        {"go to home screen", "Launch Apps", "Go to Home Screen", ""},
        {"go home", "Launch Apps", "Go to Home Screen", ""},
        {"open the music player", "Launch Apps", "Open App", "org.orvane.sim.music"},
        {"launch notes", "Launch Apps", "Open App", "org.orvane.sim.notes"},
        {"open memo", "Launch Apps", "Open App", "org.orvane.sim.notes"},
        {"close the timer", "Launch Apps", "Close App", "org.orvane.sim.timer"},
        {"open the recipes", "Launch Apps", "Open App", general},
        {"open the recipe for pancakes", "Recipe", "Open Recipe", general},
        {"open the deli cook recipe for pancakes", "Recipe", "Open Recipe", "com.delicook.recipes"},
        {"show me a korean recipe", "Recipe", "Open Recipe", "com.korearecipe.app"},
        {"what is the weather like tomorrow", "Weather", "Show Weather", ""},
        {"what time is it", "Clock", "Show Time", ""},
        {"reset the refrigerator", "System", "Restricted", ""},
    };
    for (const auto& row : table) {
        const json result = understand(row.sentence);
        ASSERT_TRUE(result.is_object()) << row.sentence;
        EXPECT_EQ(result["agent"], row.agent) << row.sentence;
        EXPECT_EQ(result["action_name"], row.action) << row.sentence;
        EXPECT_EQ(result["utterance"], row.sentence);
        const std::string package =
            result.contains("action_data") ? result["action_data"].begin()->value("package", "") : "";
        EXPECT_EQ(package, row.package) << row.sentence;
    }
}

TEST_F(TheInstalledSentences, OfARecipeGoToThePartnerWhoseRecipeIsOpen) {
    understand("open the deli cook recipe for tomato soup");
    for (const char* sentence : {"next step", "previous step", "read out the recipe", "pause the reading",
                                 "continue the reading", "stop the reading", "close the recipe"}) {
        const json result = understand(sentence);
        EXPECT_EQ(result["agent"], "Recipe") << sentence;
        EXPECT_EQ(result["action_data"]["recipe"]["package"], "com.delicook.recipes") << sentence;
    }
}

TEST_F(TheInstalledSentences, SearchForAnything) {
    const json result = understand("search for rain in spain");
    EXPECT_EQ(result["agent"], "WebSearch");
    EXPECT_EQ(result["action_name"], "Web Search");
    EXPECT_EQ(result["action_data"]["web_search"]["provider"], "google");
    EXPECT_EQ(result["action_data"]["web_search"]["search_term"], "rain in spain");
}

TEST_F(TheInstalledSentences, AskAQuestionAndAcceptItsAnswerOnlyAfterIt) {
    EXPECT_TRUE(understand("ten minutes").is_null());
    EXPECT_EQ(understand("set a timer")["action_type"], "Follow-Up");
    const json answer = understand("ten minutes");
    EXPECT_EQ(answer["action_name"], "Set Timer");
    EXPECT_EQ(answer["action_data"]["timer"]["minutes"], "10");
    EXPECT_TRUE(understand("five minutes").is_null());
}

TEST_F(TheInstalledSentences, SetATimerForEveryDuration) {
    struct {
        const char* sentence;
        const char* seconds;
        const char* minutes;
    } table[] = {
        {"set a timer for twelve minutes", "720", "12"},
        {"set a timer for an hour and a half", "5400", "90"},
        {"set a timer for ninety seconds", "90", "1.5"},
    };
    for (const auto& row : table) {
        const json result = understand(row.sentence);
        ASSERT_TRUE(result.is_object()) << row.sentence;
        EXPECT_EQ(result["action_name"], "Set Timer") << row.sentence;
        EXPECT_EQ(result["action_data"]["timer"]["seconds"], row.seconds) << row.sentence;
        EXPECT_EQ(result["action_data"]["timer"]["minutes"], row.minutes) << row.sentence;
    }
}

TEST_F(TheInstalledSentences, DoNotMatchOtherUtterances) {
    for (const char* sentence : {"", "open", "open the door", "close", "search for", "what is the meaning of life"}) {
        EXPECT_TRUE(understand(sentence).is_null()) << sentence;
    }
}

}  // namespace

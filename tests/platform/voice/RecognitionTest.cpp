// SPDX-License-Identifier: Apache-2.0
// Spoken commands, from the microphone to the result.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>
#include <nlohmann/json.hpp>

#include "VoiceHarness.h"

namespace {

using nlohmann::json;
using speech::join;
using speech::say;
using speech::silence;

struct Spoken {
    const char* sentence;
    const char* agent;
    const char* action;
    const char* field;  // "name=value" of the result's data, or empty
};

// Commands of every kind, in every voice.
const std::vector<Spoken> kCommands{
    {"go to home screen", "Launch Apps", "Go to Home Screen", ""},
    {"open the music player", "Launch Apps", "Open App", "package=org.orvane.sim.music"},
    {"open the notes", "Launch Apps", "Open App", "package=org.orvane.sim.notes"},
    {"start the kitchen timer", "Launch Apps", "Open App", "package=org.orvane.sim.timer"},
    {"close the music player", "Launch Apps", "Close App", "package=org.orvane.sim.music"},
    {"open the recipe book", "Launch Apps", "Open App", "package=com.generalrecipe.app"},
    {"show me the recipe for apple pie", "Recipe", "Open Recipe", "dish=apple pie"},
    {"read out the recipe", "Recipe", "Read Out", "package=com.generalrecipe.app"},
    {"what is the weather today", "Weather", "Show Weather", ""},
    {"what time is it", "Clock", "Show Time", ""},
    {"reset the refrigerator", "System", "Restricted", ""},
    {"set a timer for ten minutes", "Timer", "Set Timer", ""},
};

bool isUnderstood(const json& result, const Spoken& spoken) {
    if (result.value("agent", "") != spoken.agent || result.value("action_name", "") != spoken.action) {
        return false;
    }
    const std::string field = spoken.field;
    if (field.empty() || !result.contains("action_data")) {
        return field.empty();
    }
    const std::size_t mark = field.find('=');
    const json& data = *result.at("action_data").begin();
    return data.value(field.substr(0, mark), "") == field.substr(mark + 1);
}

class EveryVoice : public testing::TestWithParam<std::string> {
protected:
    void SetUp() override { ASSERT_TRUE(mVoice.makeReady()); }

    // The result of one utterance; null for a rejection.
    json recognize(const std::string& sentence) {
        mVoice.events.clear();
        mVoice.jsons.clear();
        vc_mgr_set_private_data("Request", "resetSession");
        microphone::speak(join({silence(0.5), say(GetParam(), sentence), silence(1.5)}));
        EXPECT_EQ(vc_mgr_start(false), VC_ERROR_NONE);
        EXPECT_TRUE(mVoice.runUntilEvent("service 3->1"));
        microphone::reset();
        return mVoice.jsons.empty() ? json() : json::parse(mVoice.jsons[0]);
    }

    VoiceHarness mVoice;
};

TEST_P(EveryVoice, IsUnderstood) {
    std::size_t understood = 0;
    for (const Spoken& spoken : kCommands) {
        const json result = recognize(spoken.sentence);
        if (isUnderstood(result, spoken)) {
            ++understood;
        } else {
            std::cout << GetParam() << ": \"" << spoken.sentence << "\" gave " << result << "\n";
        }
    }
    std::cout << GetParam() << ": " << understood << " of " << kCommands.size() << " commands understood\n";
    EXPECT_GE(understood + 1, kCommands.size());
}

TEST_P(EveryVoice, CanSearchForAnyWords) {
    const json result = recognize("search for chocolate cake");
    EXPECT_EQ(result.value("agent", ""), "WebSearch");
    EXPECT_EQ(result.value("action_name", ""), "Web Search");
    EXPECT_EQ(result.at("action_data").at("web_search").at("search_term"), "chocolate cake");
    EXPECT_EQ(result.at("action_data").at("web_search").at("provider"), "google");
}

TEST_P(EveryVoice, IsRejectedWhenItSaysSomethingElse) {
    const std::vector<std::string> other{"the coffee is almost ready", "who left the window open all night",
                                         "it is so good to see you all again", "could you hand me the orange juice",
                                         "the quick brown fox jumps over the lazy dog"};
    std::size_t rejected = 0;
    for (const std::string& sentence : other) {
        recognize(sentence);
        rejected += mVoice.count("rejected") == 1 ? 1 : 0;
    }
    std::cout << GetParam() << ": " << rejected << " of " << other.size() << " other sentences rejected\n";
    EXPECT_GE(rejected + 1, other.size());
}

INSTANTIATE_TEST_SUITE_P(Flite, EveryVoice, testing::ValuesIn(speech::kVoices),
                         [](const auto& test) { return test.param; });

}  // namespace

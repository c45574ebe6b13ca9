// SPDX-License-Identifier: Apache-2.0
#include "voice/Sentence.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using voice::matches;
using voice::NameLists;
using voice::parseSentence;
using voice::SlotValues;
using voice::splitWords;

const NameLists kApps{
    {"app", {{"org.music", parseSentence("[the] music [player]")}, {"org.notes", parseSentence("notes")}}}};

bool fits(const std::string& sentence, const std::string& utterance, SlotValues* filling = nullptr) {
    SlotValues own;
    return matches(parseSentence(sentence), kApps, splitWords(utterance), filling ? *filling : own);
}

TEST(ASentence, MatchesTheUtterancesItDescribesAndNoOthers) {
    struct {
        const char* sentence;
        const char* utterance;
        bool expected;
    } table[] = {
        {"go home", "go home", true},
        {"go home", "go", false},
        {"go home", "go home now", false},
        {"Go Home", "go home", true},
        {"go [back] home", "go home", true},
        {"go [back] home", "go back home", true},
        {"go [back] home", "go back", false},
        {"(open | start) it", "start it", true},
        {"(open | start) it", "close it", false},
        {"(open [up] | start) it", "open up it", true},
        {"[a [b [c]]] d", "a b c d", true},
        {"[a [b [c]]] d", "a c d", false},
        {"[a] a", "a", true},
        {"[a] a a", "a a a", true},
        {"what's up", "what's up", true},
        {"search for *", "search for pie", true},
        {"search for *", "search for", false},
        {"a | b c", "b c", true},
        {"add * to my list", "add milk to my list", true},
        {"add * to my list", "add to my list", false},
        {"add * to my list", "add milk to my list now", false},
        {"(add * | put *) on it", "put milk on it", true},
        {"* please", "help me please", true},
        {"* please", "please", false},
        {"add * to <app>", "add milk to the music", true},
    };
    for (const auto& row : table) {
        EXPECT_EQ(fits(row.sentence, row.utterance), row.expected) << row.sentence << " / " << row.utterance;
    }
}

TEST(ASentence, CapturesTheSpokenName) {
    SlotValues filling;
    EXPECT_TRUE(fits("open <app>", "open the music player", &filling));
    EXPECT_EQ(filling["app"], "org.music");
    EXPECT_TRUE(fits("open <app>", "open notes", &filling));
    EXPECT_EQ(filling["app"], "org.notes");
}

TEST(ASentence, CapturesTheWordsOfItsFreeTail) {
    SlotValues filling;
    EXPECT_TRUE(fits("search for *", "search for pie and cake", &filling));
    EXPECT_EQ(filling["*"], "pie and cake");
}

TEST(ASentence, CapturesAsFewFreeWordsAsPossible) {
    struct {
        const char* sentence;
        const char* utterance;
        const char* free;
    } table[] = {
        {"add * to my list", "add salt and pepper to my list", "salt and pepper"},
        {"add * to my list", "add a note to my list to my list", "a note to my list"},
        {"add [some] * to my list", "add some milk to my list", "milk"},
        {"search for * [please]", "search for pie please", "pie"},
        {"remind me to * [at noon]", "remind me to eat at noon", "eat"},
    };
    for (const auto& row : table) {
        SlotValues filling;
        EXPECT_TRUE(fits(row.sentence, row.utterance, &filling)) << row.utterance;
        EXPECT_EQ(filling["*"], row.free) << row.utterance;
    }
}

TEST(ASentence, HasFreeWordsInOnePlaceOnly) {
    for (const char* text : {"* *", "add * to *", "add [*] to *", "(a | *) (b | *)"}) {
        EXPECT_THROW(parseSentence(text), std::invalid_argument) << text;
    }
    EXPECT_NO_THROW(parseSentence("(add * | put *) on [the] list"));
}

TEST(ASentence, DoesNotMatchWhenItHasTooManyVariants) {
    std::string sentence;
    std::string utterance;
    for (int i = 0; i < 200; ++i) {
        sentence += "(a | a) ";
        utterance += "a ";
    }
    EXPECT_TRUE(fits(sentence, utterance));
    EXPECT_FALSE(fits(sentence + "b", utterance + "c")) << "it has too many variants";
}

TEST(ASentence, MayHaveTwentyOptionalPartsButMustKeepAWord) {
    std::string optional;
    for (int i = 0; i < 20; ++i) {
        optional += "[a] ";
    }
    EXPECT_TRUE(fits(optional + "b", "a a a b"));
    EXPECT_THROW(parseSentence(optional + "[a] b"), std::invalid_argument);
    for (const char* text : {"[a]", "[a] [b]", "b | [a]", "([a] | b)"}) {
        EXPECT_THROW(parseSentence(text), std::invalid_argument) << text;
    }
}

TEST(ASentence, ThatIsMalformedIsRefused) {
    for (const char* text : {"", "   ", "(", ")", "open (a", "open [a", "a ]", "()", "[]", "(a|)", "|", "<", "<>",
                             "<app", "a $ b", "a 7", "\xff"}) {
        EXPECT_THROW(parseSentence(text), std::invalid_argument) << text;
    }
    EXPECT_THROW(parseSentence(std::string(100000, '(') + "a"), std::invalid_argument);
}

TEST(ASentence, ListsItsWordsAndThoseOfItsNames) {
    std::set<std::string> words;
    collectWords(parseSentence("(open | start) [the] <app>"), kApps, words);
    EXPECT_EQ(words, (std::set<std::string>{"open", "start", "the", "music", "player", "notes"}));
}

}  // namespace

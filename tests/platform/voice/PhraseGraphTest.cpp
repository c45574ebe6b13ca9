// SPDX-License-Identifier: Apache-2.0
#include "voice/recognizer/PhraseGraph.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "voice/sentences/BuiltInLists.h"

namespace {

using testing::UnorderedElementsAre;
using voice::PhraseGraph;
using voice::PhraseGraphBuilder;

PhraseGraph graphOf(const std::vector<std::string>& sentences) {
    PhraseGraphBuilder builder;
    for (const std::string& sentence : sentences) {
        builder.add(voice::parseSentence(sentence));
    }
    return builder.build();
}

void collectPhrases(const PhraseGraph& graph, int state, const std::string& words, std::vector<std::string>& phrases) {
    if (graph.states[state].isFinal) {
        phrases.push_back(words);
    }
    for (const auto& [label, target] : graph.states[state].arcs) {
        collectPhrases(graph, target, words + "/" + label, phrases);
    }
}

std::vector<std::string> phrasesOf(const std::vector<std::string>& sentences) {
    std::vector<std::string> phrases;
    const PhraseGraph graph = graphOf(sentences);
    collectPhrases(graph, graph.start, "", phrases);
    return phrases;
}

TEST(APhraseGraph, ContainsEveryPhraseOnce) {
    EXPECT_THAT(
        phrasesOf({"(open | start) [the] <app> [app]", "open it", "start it"}),
        UnorderedElementsAre("/open/<app>", "/open/<app>/app", "/open/the/<app>", "/open/the/<app>/app", "/start/<app>",
                             "/start/<app>/app", "/start/the/<app>", "/start/the/<app>/app", "/open/it", "/start/it"));
    EXPECT_THAT(phrasesOf({"add * to [my] list", "add *"}),
                UnorderedElementsAre("/add/*", "/add/*/to/list", "/add/*/to/my/list"));
    EXPECT_THAT(phrasesOf({"[a] [a] b"}), UnorderedElementsAre("/b", "/a/b", "/a/a/b"));
    EXPECT_THAT(phrasesOf({}), testing::IsEmpty());
}

TEST(APhraseGraph, SharesBeginningsAndEnds) {
    EXPECT_EQ(graphOf({"open the door", "open the window", "close the window"}).states.size(), 6U);
    EXPECT_EQ(graphOf({"one minute", "two minute", "three minute"}).states.size(), 3U);
}

TEST(APhraseGraph, OfTwoThousandTimesIsSmall) {
    PhraseGraphBuilder builder;
    for (const voice::Named& named : voice::timeNames()) {
        builder.add(named.spoken);
    }
    EXPECT_LT(builder.build().states.size(), 200U);
}

}  // namespace

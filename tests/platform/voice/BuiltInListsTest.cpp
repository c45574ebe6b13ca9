// SPDX-License-Identifier: Apache-2.0
// The lists that a sentence file uses without defining them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

#include "sphinx/Models.h"
#include "voice/Understanding.h"
#include "voice/recognizer/Grammar.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using voice::SentenceFile;

SentenceFile parse(const std::string& text, std::vector<int>* faults = nullptr) {
    return voice::parseSentenceFile(text, [&](int line, const std::string& what) {
        if (faults) {
            faults->push_back(line);
        } else {
            ADD_FAILURE() << line << ": " << what;
        }
    });
}

// The value of the field x, or "nothing".
std::string valueOf(const SentenceFile& file, const std::string& sentence) {
    voice::Dialogue dialogue;
    const auto intent = voice::understand(sentence, file, dialogue);
    return intent ? intent->field("x") : "nothing";
}

std::vector<std::string> listsOf(const SentenceFile& file) {
    std::vector<std::string> lists;
    for (const auto& [list, names] : file.lists) {
        lists.push_back(list);
    }
    return lists;
}

using Values = std::vector<std::pair<const char*, const char*>>;

void expectValues(const std::string& list, const Values& values) {
    const SentenceFile file = parse("[A / B]\nx = <" + list + ">\nsay <" + list + "> now\n");
    for (const auto& [spoken, value] : values) {
        EXPECT_EQ(valueOf(file, std::string("say ") + spoken + " now"), value) << spoken;
    }
}

TEST(ANumber, IsSpokenFromZeroTo999) {
    expectValues("number", {{"zero", "0"},
                            {"twelve", "12"},
                            {"forty", "40"},
                            {"twenty five", "25"},
                            {"one hundred", "100"},
                            {"a hundred", "100"},
                            {"one hundred five", "105"},
                            {"one hundred and five", "105"},
                            {"two hundred fifteen", "215"},
                            {"nine hundred and ninety nine", "999"},
                            {"one thousand", "nothing"},
                            {"twenty eleven", "nothing"},
                            {"hundred", "nothing"},
                            {"five hundred and", "nothing"}});
}

TEST(ATime, IsSpokenInManyWays) {
    expectValues("time", {{"seven", "07:00"},
                          {"seven o'clock", "07:00"},
                          {"seven thirty", "07:30"},
                          {"half past seven", "07:30"},
                          {"seven oh five", "07:05"},
                          {"five past seven", "07:05"},
                          {"twenty five minutes after nine", "09:25"},
                          {"quarter past three", "03:15"},
                          {"a quarter to one", "12:45"},
                          {"ten to eight", "07:50"},
                          {"seven forty two", "07:42"},
                          {"noon", "12:00"},
                          {"midnight", "00:00"},
                          {"twenty five thirty", "nothing"},
                          {"seven sixty", "nothing"}});
}

TEST(ATime, BelongsToThePartOfTheDayThatThePersonNames) {
    expectValues("time", {{"seven in the morning", "07:00"},
                          {"quarter to six in the evening", "17:45"},
                          {"half past three in the afternoon", "15:30"},
                          {"ten at night", "22:00"},
                          {"two at night", "02:00"},
                          {"twelve at night", "00:00"},
                          {"twelve thirty in the afternoon", "12:30"},
                          {"twelve thirty a m", "00:30"},
                          {"six fifteen p m", "18:15"},
                          {"eleven fifty nine pm", "23:59"},
                          {"nine in the afternoon", "nothing"}});
}

TEST(ATime, WithoutAPartOfTheDayIsAsSpokenAndTwelveIsNoon) {
    expectValues("time",
                 {{"one", "01:00"}, {"eleven thirty", "11:30"}, {"twelve", "12:00"}, {"half past twelve", "12:30"}});
}

TEST(ADuration, IsANumberOfSeconds) {
    expectValues("duration", {{"one second", "1"},
                              {"ninety seconds", "90"},
                              {"a minute", "60"},
                              {"twelve minutes", "720"},
                              {"twenty minute", "1200"},
                              {"a hundred and twenty minutes", "7200"},
                              {"half a minute", "30"},
                              {"a minute and a half", "90"},
                              {"six and a half minutes", "390"},
                              {"a quarter of an hour", "900"},
                              {"half an hour", "1800"},
                              {"three quarters of an hour", "2700"},
                              {"an hour and a half", "5400"},
                              {"one and a half hours", "5400"},
                              {"an hour and a quarter", "4500"},
                              {"two hours and ten minutes", "7800"},
                              {"two hours ten minutes", "7800"},
                              {"two minutes thirty seconds", "150"},
                              {"twenty four hours", "86400"},
                              {"ten", "nothing"},
                              {"minutes", "nothing"},
                              {"two hours and", "nothing"}});
}

TEST(ABuiltInList, ExistsOnlyIfASentenceRefersToIt) {
    EXPECT_THAT(listsOf(parse("[A / B]\ngo home\n")), IsEmpty());
    EXPECT_THAT(listsOf(parse("[A / B]\nvolume <number>\n")), ElementsAre("number"));
}

TEST(ABuiltInList, IsReplacedByTheFilesOwnList) {
    const SentenceFile above = parse("[names number]\nlots = many\n[A / B]\nx = <number>\nsay <number>\n");
    const SentenceFile below = parse("[A / B]\nx = <number>\nsay <number>\n[names number]\nlots = many\nall = every\n");
    for (const SentenceFile* file : {&above, &below}) {
        EXPECT_EQ(valueOf(*file, "say many"), "lots");
        EXPECT_EQ(valueOf(*file, "say two"), "nothing");
    }
    EXPECT_EQ(valueOf(below, "say every"), "all");
}

TEST(ABuiltInList, HasOnlyWordsWithAPronunciation) {
    SentenceFile file = parse("[A / B]\n<number>\n<time>\n<duration>\n");
    const SentenceFile before = file;
    voice::soundsOf(file, sphinx::modelPath("en-us/cmudict-en-us.dict"));
    EXPECT_EQ(file.commands[0].sentences.size(), 3U);
    for (const auto& [list, names] : before.lists) {
        EXPECT_EQ(file.lists.at(list).size(), names.size()) << list;
    }
}

TEST(AField, MayDivideTheValueOfAList) {
    const SentenceFile file =
        parse("[A / B]\nx = <duration> / 60\nwait <duration>\n[A / C]\nx = <duration> / 60\nwait\n");
    EXPECT_EQ(valueOf(file, "wait two hours"), "120");
    EXPECT_EQ(valueOf(file, "wait ninety seconds"), "1.5");
    EXPECT_EQ(valueOf(file, "wait twenty seconds"), "0.33");
    EXPECT_EQ(valueOf(file, "wait"), "") << "nobody said a duration";
}

TEST(AField, WithAMalformedDivisorIsAFault) {
    std::vector<int> faults;
    const SentenceFile file =
        parse("[A / B]\nx = <number> / 0\nx = <number> / six\nx = <number> 6\nx = 1 / 0\n", &faults);
    EXPECT_THAT(faults, ElementsAre(2, 3, 4));
    EXPECT_THAT(file.commands[0].fields, ElementsAre(Pair("x", "1 / 0"))) << "a text";
}

}  // namespace

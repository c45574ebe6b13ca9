// SPDX-License-Identifier: Apache-2.0
#include "voice/SentenceFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "sphinx/Models.h"
#include "voice/recognizer/Grammar.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using voice::parseSentenceFile;
using voice::SentenceFile;

struct Parsed {
    explicit Parsed(const std::string& text)
        : file(parseSentenceFile(text, [this](int line, const std::string&) { faults.push_back(line); })) {}

    std::vector<int> faults;
    SentenceFile file;
};

TEST(ASentenceFile, ContainsNamesPronunciationsFieldsAndSentences) {
    const Parsed parsed(R"(
# a comment
[names app]
org.music = [the] music   # and another
[sounds]
music = M Y UW
[recipe steps]
soup = 3
[Launch Apps / Open App]
package = <app>
open <app>
[please] start <app>
[Timer / Ask / Follow-Up]
only after = Open App
set a timer
)");
    EXPECT_THAT(parsed.faults, IsEmpty());
    EXPECT_EQ(parsed.file.lists.at("app").at(0).value, "org.music");
    EXPECT_THAT(parsed.file.sounds.at("music"), ElementsAre("M Y UW"));
    EXPECT_EQ(parsed.file.recipeSteps.at("soup"), 3);
    ASSERT_EQ(parsed.file.commands.size(), 2U);
    EXPECT_EQ(parsed.file.commands[0].agent, "Launch Apps");
    EXPECT_EQ(parsed.file.commands[0].actionName, "Open App");
    EXPECT_EQ(parsed.file.commands[0].actionType, "Action");
    EXPECT_THAT(parsed.file.commands[0].fields, ElementsAre(Pair("package", "<app>")));
    EXPECT_EQ(parsed.file.commands[0].sentences.size(), 2U);
    EXPECT_EQ(parsed.file.commands[1].actionType, "Follow-Up");
    EXPECT_EQ(parsed.file.commands[1].onlyAfter, "Open App");
}

TEST(ASentenceFile, ReportsBadLinesByNumberAndKeepsTheRest) {
    const Parsed parsed(
        "a sentence of nothing\n"  // 1
        "[Agent / Action]\n"
        "go home\n"
        "go (home\n"                    // 4
        "open <nothing>\n"              // 5
        "= value\n"                     // 6
        "name =\n"                      // 7
        "[Agent / ]\n"                  // 8
        "belongs to the bad section\n"  // 9
        "[names x]\n"
        "no value\n"     // 11
        "value = <x>\n"  // 12
        "value = a *\n"  // 13
        "[sounds]\n"
        "word = QQ\n"  // 15
        "[recipe steps]\n"
        "soup = many\n"  // 17
        "soup = 0\n"     // 18
        "[Agent / Other]\n"
        "go back\n");
    EXPECT_THAT(parsed.faults, ElementsAre(1, 4, 5, 6, 7, 8, 9, 11, 12, 13, 15, 17, 18));
    ASSERT_EQ(parsed.file.commands.size(), 2U);
    EXPECT_EQ(parsed.file.commands[0].sentences.size(), 1U);
    EXPECT_EQ(parsed.file.commands[1].sentences.size(), 1U);
}

TEST(ASentenceFile, MayContainAnyBytes) {
    std::string bytes;
    for (int i = 0; i < 100000; ++i) {
        bytes += static_cast<char>(i * 7919 % 256);
    }
    const Parsed parsed(bytes);
    EXPECT_THAT(parsed.file.commands, IsEmpty());
    EXPECT_THAT(Parsed(std::string(1000000, 'a')).faults, ElementsAre(1));
}

TEST(TheInstalledSentenceFile, HasNoFaultsAndEverySentenceCanBeSpoken) {
    std::ifstream in(ORVANE_DATA "/voice/data/preloaded_commands.txt");
    const Parsed parsed({std::istreambuf_iterator<char>(in), {}});
    EXPECT_THAT(parsed.faults, IsEmpty());
    SentenceFile file = parsed.file;
    std::size_t sentences = 0;
    for (const voice::Command& command : file.commands) {
        sentences += command.sentences.size();
        EXPECT_THAT(command.sentences, testing::Not(IsEmpty())) << command.actionName;
    }
    EXPECT_GT(sentences, 40U);
    voice::soundsOf(file, sphinx::modelPath("en-us/cmudict-en-us.dict"));
    std::size_t sayable = 0;
    for (const voice::Command& command : file.commands) {
        sayable += command.sentences.size();
    }
    EXPECT_EQ(sayable, sentences);
}

TEST(ASentence, WithAnUnpronounceableWordIsDroppedAndTheOthersRemain) {
    Parsed parsed("[names app]\na = qzxqzx\nb = music\n[A / B]\nopen <app>\nopen the xqzqx\n");
    ASSERT_THAT(parsed.faults, IsEmpty());
    voice::soundsOf(parsed.file, sphinx::modelPath("en-us/cmudict-en-us.dict"));
    EXPECT_EQ(parsed.file.commands[0].sentences.size(), 1U);
    ASSERT_EQ(parsed.file.lists.at("app").size(), 1U);
    EXPECT_EQ(parsed.file.lists.at("app")[0].value, "b");
}

}  // namespace

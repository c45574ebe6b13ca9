// SPDX-License-Identifier: Apache-2.0
#include "voice/Dialogue.h"

#include <gtest/gtest.h>

namespace {

using voice::Dialogue;
using voice::Intent;
using voice::SentenceFile;

class ARecipeDialogue : public testing::Test {
protected:
    ARecipeDialogue() { mCommands.recipeSteps["soup"] = 3; }

    // The action name after the dialogue has processed it.
    std::string say(const std::string& action) {
        Intent intent{"Recipe", action, "Action", {{"package", "general"}}};
        mDialogue.settle(intent, mCommands);
        mPackage = intent.field("package");
        return intent.actionName;
    }
    std::string open(const std::string& dish, const std::string& package = "general") {
        Intent intent{"Recipe", "Open Recipe", "Action", {{"package", package}, {"dish", dish}}};
        mDialogue.settle(intent, mCommands);
        return intent.actionName;
    }

    SentenceFile mCommands;
    Dialogue mDialogue;
    std::string mPackage;
};

TEST_F(ARecipeDialogue, InitiallyAllowsEveryCommand) {
    for (const char* action : {"Next Step", "Previous Step", "Pause Read Out", "Resume Read Out", "Close Recipe"}) {
        Dialogue fresh;
        Intent intent{"Recipe", action, "Action", {{"package", "general"}}};
        fresh.settle(intent, mCommands);
        EXPECT_EQ(intent.actionName, action);
        EXPECT_EQ(intent.field("package"), "general");
    }
}

TEST_F(ARecipeDialogue, SendsCommandsToThePartnerWhoseRecipeIsOpen) {
    EXPECT_EQ(open("soup", "deli"), "Open Recipe");
    EXPECT_EQ(say("Next Step"), "Next Step");
    EXPECT_EQ(mPackage, "deli");
}

TEST_F(ARecipeDialogue, KnowsTheFirstAndTheLastStep) {
    open("soup");
    EXPECT_EQ(say("Previous Step"), "No Previous Step");
    EXPECT_EQ(say("Next Step"), "Next Step");
    EXPECT_EQ(say("Next Step"), "Next Step");
    EXPECT_EQ(say("Next Step"), "No Next Step");
    EXPECT_EQ(say("Previous Step"), "Previous Step");
    EXPECT_EQ(say("Next Step"), "Next Step");
}

TEST_F(ARecipeDialogue, HasNoLastStepInARecipeOfUnknownLength) {
    open("cake");
    for (int i = 0; i < 50; ++i) {
        EXPECT_EQ(say("Next Step"), "Next Step");
    }
}

TEST_F(ARecipeDialogue, KnowsTheStateOfTheReading) {
    open("soup");
    EXPECT_EQ(say("Pause Read Out"), "Read Out Not Started");
    EXPECT_EQ(say("Resume Read Out"), "Read Out Not Started");
    EXPECT_EQ(say("Stop Read Out"), "Read Out Not Started");
    EXPECT_EQ(say("Read Out"), "Read Out");
    EXPECT_EQ(say("Read Out"), "Read Out Is Already Playing");
    EXPECT_EQ(say("Resume Read Out"), "Read Out Is Already Running");
    EXPECT_EQ(say("Pause Read Out"), "Pause Read Out");
    EXPECT_EQ(say("Pause Read Out"), "Read Out Is Already Paused");
    EXPECT_EQ(say("Resume Read Out"), "Resume Read Out");
    EXPECT_EQ(say("Stop Read Out"), "Stop Read Out");
    EXPECT_EQ(say("Pause Read Out"), "Read Out Not Started");
}

TEST_F(ARecipeDialogue, OpensTheSameRecipeOnce) {
    EXPECT_EQ(open("soup"), "Open Recipe");
    EXPECT_EQ(open("soup"), "Recipe App Already Launched");
    EXPECT_EQ(open("cake"), "Open Recipe");
    EXPECT_EQ(open("cake", "deli"), "Open Recipe");
}

TEST_F(ARecipeDialogue, HasNoPageAfterClosingIt) {
    open("soup");
    EXPECT_EQ(say("Close Recipe"), "Close Recipe");
    EXPECT_EQ(say("Next Step"), "Recipe Page Is Not Open");
    EXPECT_EQ(say("Read Out"), "Recipe Page Is Not Open");
    EXPECT_EQ(open("soup"), "Open Recipe");
    EXPECT_EQ(say("Next Step"), "Next Step");
}

TEST_F(ARecipeDialogue, ForgetsEverythingWhenItIsReset) {
    open("soup", "deli");
    say("Close Recipe");
    mDialogue.forget();
    EXPECT_EQ(say("Next Step"), "Next Step");
    EXPECT_EQ(mPackage, "general");
}

}  // namespace

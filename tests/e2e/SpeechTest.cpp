// SPDX-License-Identifier: Apache-2.0
// What the UI receives while a person speaks: partial results, the beginning of speech, the level.
#include <gtest/gtest.h>

#include "Person.h"
#include "appliance/sound/Speech.h"

TEST(PartialResults, ReachTheUiWhileThePersonSpeaks) {
    Person person;
    person.wakes();
    person.appliance.turnPage();
    person.says("show me the recipe for pancakes");  // returns when the last word has been played
    EXPECT_GE(person.appliance.count(sim::kUi, {{"event", "partial"}, {"final", false}}), 2);
    EXPECT_EQ(person.appliance.count(sim::kUi, {{"event", "state"}, {"state", "Processing"}}), 0);
    person.appliance.awaitState("Ready");
    EXPECT_EQ(person.appliance.count(
                  sim::kUi, {{"event", "partial"}, {"final", true}, {"text", "show me the recipe for pancakes"}}),
              1);
}

TEST(TheBeginningOfSpeech, ReachesTheUiOncePerRecognitionSession) {
    Person person;
    person.wakes();
    person.appliance.turnPage();
    person.says("open music");
    person.appliance.awaitState("Ready");
    EXPECT_EQ(person.appliance.count(sim::kUi, {{"event", "speech detected"}}), 1);
}

TEST(TheLevelFile, ChangesOnlyWhileTheServiceRecords) {
    Person person;
    person.appliance.launch(sim::kUi);
    const sim::Event level = {{"event", "level"}};
    person.appliance.turnPage();
    person.says("good morning everybody");
    EXPECT_EQ(person.appliance.count(sim::kUi, level), 0);

    person.pushesToTalk();
    person.appliance.turnPage();
    person.appliance.play(sim::stairs(person.appliance.folder(), 2));
    sim::until("the level has changed often", [&] { return person.appliance.count(sim::kUi, level) >= 20; });

    person.appliance.control(sim::kUi, "cancel");
    person.appliance.awaitState("StandBy");
    person.appliance.turnPage();
    person.says("good morning everybody");
    EXPECT_EQ(person.appliance.count(sim::kUi, level), 0);
}

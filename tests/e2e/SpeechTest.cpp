// What the UI gets while a person speaks: words, the start of speech, the level.
#include <gtest/gtest.h>

#include "Person.h"

TEST(PartialText, ReachesTheUiBeforeThePersonHasFinished) {
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

TEST(TheStartOfSpeech, IsToldOnceInARecognition) {
    Person person;
    person.wakes();
    person.appliance.turnPage();
    person.says("open music");
    person.appliance.awaitState("Ready");
    EXPECT_EQ(person.appliance.count(sim::kUi, {{"event", "speech detected"}}), 1);
}

TEST(TheLevelFile, ChangesFiftyTimesASecondWhileRecordingAndStandsStillOtherwise) {
    Person person;
    person.appliance.launch(sim::kUi);
    const sim::Event level = {{"event", "level"}};
    person.appliance.turnPage();
    person.says("good morning everybody");
    EXPECT_EQ(person.appliance.count(sim::kUi, level), 0);

    person.wakes();
    person.says("show me the recipe for pancakes");
    const double period = person.appliance.await(sim::kUi, {{"event", "levels"}})["period"];
    // Not every 20 ms bring another whole decibel, and the timer may be late on a busy machine.
    EXPECT_GT(period, 19);
    EXPECT_LT(period, 40);

    person.appliance.awaitState("Ready");
    person.appliance.turnPage();
    person.says("good morning everybody");
    EXPECT_EQ(person.appliance.count(sim::kUi, level), 0);
}

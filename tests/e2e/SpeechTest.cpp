// SPDX-License-Identifier: Apache-2.0
// What the UI gets while a person speaks: words, the start of speech, the level.
#include <gtest/gtest.h>

#include <algorithm>

#include "Person.h"
#include "appliance/Speech.h"

namespace {

// Between two changes of the level, in seconds: the median, for a timer may be late on a busy machine.
double usualPeriod(Person& person) {
    std::vector<double> periods;
    double last = 0;
    for (const sim::Event& event : person.appliance.page()) {
        if (event["event"] == "level") {
            const double at = event["at"];
            periods.push_back(at - last);
            last = at;
        }
    }
    if (periods.size() < 50) {
        throw std::runtime_error("only " + std::to_string(periods.size()) + " levels");
    }
    const auto middle = periods.begin() + static_cast<std::ptrdiff_t>(periods.size() / 2);
    std::nth_element(periods.begin(), middle, periods.end());
    return *middle;
}

}  // namespace

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

    person.pushesToTalk();
    person.appliance.turnPage();
    person.appliance.play(sim::stairs(person.appliance.folder(), 2));
    EXPECT_NEAR(usualPeriod(person), 0.020, 0.006);

    person.appliance.order(sim::kUi, "cancel");
    person.appliance.awaitState("StandBy");
    person.appliance.turnPage();
    person.says("good morning everybody");
    EXPECT_EQ(person.appliance.count(sim::kUi, level), 0);
}

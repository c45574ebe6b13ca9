// SPDX-License-Identifier: Apache-2.0
// From a spoken command to the application that carries it out.
#include <gtest/gtest.h>

#include "Person.h"
#include "appliance/sound/Speech.h"

class AVoice : public testing::TestWithParam<const char*> {};

TEST_P(AVoice, WakesTheAssistantAndOpensAnApplication) {
    Person person(GetParam());
    person.wakes();
    person.says("open music");
    person.appliance.awaitState("Processing");
    person.appliance.awaitState("Ready");
    person.appliance.await("org.orvane.sim.music", {{"event", "launch"}});
}

INSTANTIATE_TEST_SUITE_P(Flite, AVoice, testing::Values("slt", "awb", "rms", "kal16"),
                         [](const auto& voice) { return std::string(voice.param); });

TEST(PushToTalk, StartsAndStopsAtTheRequestOfTheUi) {
    Person person;
    person.appliance.launch(sim::kUi);
    person.pushesToTalk();
    person.says("open music");
    // Twice the silence that ends an utterance in any other mode.
    person.appliance.play(sim::silence(person.appliance.folder(), 2));
    EXPECT_EQ(person.appliance.count(sim::kUi, {{"event", "state"}, {"state", "Processing"}}), 0);
    EXPECT_EQ(person.appliance.count(sim::kUi, {{"event", "state"}, {"state", "Ready"}}), 0);
    person.appliance.control(sim::kUi, "stop");
    person.appliance.awaitState("Ready");
    person.appliance.await("org.orvane.sim.music", {{"event", "launch"}});
}

TEST(AWakeWordRightAfterAResult, StartsANewRecognitionSession) {
    Person person;
    person.wakes();
    person.says("open music");
    person.appliance.awaitState("Ready");
    person.wakes();
    person.says("close music");
    person.appliance.await("org.orvane.sim.music", {{"event", "closed"}});
}

TEST(AUiThatDoesNotAcknowledgeReady, DelaysTheLaunchByAboutASecond) {
    Person person;
    person.appliance.launch(sim::kUi);
    person.appliance.control(sim::kUi, "acknowledge", "no");
    person.wakes();
    person.says("open music");
    const double ready = person.appliance.awaitState("Ready")["at"];
    const double launched = person.appliance.await("org.orvane.sim.music", {{"event", "launch"}})["at"];
    EXPECT_GT(launched - ready, 0.9);
}

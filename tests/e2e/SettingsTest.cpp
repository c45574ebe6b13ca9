// SPDX-License-Identifier: Apache-2.0
// Changes of the settings while the service runs.
#include <gtest/gtest.h>

#include "Person.h"

namespace {

void untilLogged(Person& person, const std::string& text, int times = 1) {
    sim::until("the service logs " + text, [&] {
        const std::string log = person.appliance.service().log();
        int found = 0;
        for (auto at = log.find(text); at != std::string::npos; at = log.find(text, at + 1)) {
            ++found;
        }
        return found >= times;
    });
}

void opensMusic(Person& person) {
    person.wakes();
    person.says("open music");
    person.appliance.await("org.orvane.sim.music", {{"event", "launch"}});
}

}  // namespace

TEST(ANewMenuLanguage, ChangesTheAssistantTheRecognizerAndTheWakeWordData) {
    Person person;
    sim::settings::set(sim::kMenuLanguage, "en_GB.UTF-8");
    sim::until("the assistant's language is British English",
               [] { return sim::settings::getInt(sim::kAssistantLanguage) == 2; });
    untilLogged(person, "recognizes en_GB");
    untilLogged(person, "data/ENG/wakeup_quorbit");
    opensMusic(person);
}

TEST(AnUnsupportedMenuLanguage, FallsBackToTheLanguageOfTheRegion) {
    Person person;
    sim::settings::set(sim::kRegion, "EU");
    sim::settings::set(sim::kMenuLanguage, "nl_NL.UTF-8");
    sim::until("the assistant's language is that of Europe, British English",
               [] { return sim::settings::getInt(sim::kAssistantLanguage) == 2; });
    sim::settings::set(sim::kRegion, "US");
    sim::settings::set(sim::kMenuLanguage, "pt_BR.UTF-8");
    sim::until("the assistant's language is that of the United States, American English",
               [] { return sim::settings::getInt(sim::kAssistantLanguage) == 1; });
    untilLogged(person, "data/ENU/wakeup_quorbit", 2);
    opensMusic(person);
}

TEST(ANewWakeWord, ReplacesTheOldOne) {
    Person person;
    sim::settings::set(sim::kWakeWord, 1);
    untilLogged(person, "listens for \"hey vexal\"");
    person.says("hey quorbit");
    person.says("hey vexal");
    person.appliance.await(sim::kUi, {{"event", "wake word detected"}});
    person.appliance.awaitState("Recording");
    EXPECT_EQ(person.appliance.count(sim::kUi, {{"event", "wake word detected"}}), 1);
    const std::string log = person.appliance.service().log();
    EXPECT_EQ(log.find("wuw: hey quorbit"), std::string::npos);
    EXPECT_NE(log.find("wuw: hey vexal"), std::string::npos);
}

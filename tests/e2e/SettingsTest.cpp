// SPDX-License-Identifier: Apache-2.0
// The service follows the settings while it runs.
#include <gtest/gtest.h>

#include "Person.h"

namespace {

constexpr char kMenuLanguage[] = "db/menu_widget/language";
constexpr char kLanguage[] = "db/orvane/setting/lang";
constexpr char kRegion[] = "db/setting/region_code";
constexpr char kWakeupWord[] = "db/orvane/setting/voice_wakeup_word";

void untilLogged(Person& person, const std::string& text, int times = 1) {
    person.appliance.until("the service logs " + text, [&] {
        const std::string log = person.appliance.serviceLog();
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

TEST(AnotherMenuLanguage, MovesTheAssistantsLanguageTheRecognizerAndTheWakeUpData) {
    Person person;
    sim::settings::set(kMenuLanguage, "en_GB.UTF-8");
    person.appliance.until("the assistant's language is British English",
                           [] { return sim::settings::getInt(kLanguage) == 2; });
    untilLogged(person, "recognises en_GB");
    untilLogged(person, "data/ENG/wakeup_quorbit");
    opensMusic(person);
}

TEST(AMenuLanguageThatIsNotSupported, FallsBackByTheRegion) {
    Person person;
    sim::settings::set(kRegion, "EU");
    sim::settings::set(kMenuLanguage, "nl_NL.UTF-8");
    person.appliance.until("Europe speaks British English", [] { return sim::settings::getInt(kLanguage) == 2; });
    sim::settings::set(kRegion, "US");
    sim::settings::set(kMenuLanguage, "pt_BR.UTF-8");
    person.appliance.until("America speaks American English", [] { return sim::settings::getInt(kLanguage) == 1; });
    untilLogged(person, "data/ENU/wakeup_quorbit", 2);
    opensMusic(person);
}

TEST(AnotherWakeUpWord, IsAnsweredAndTheOldOneIsNot) {
    Person person;
    sim::settings::set(kWakeupWord, 1);
    untilLogged(person, "listens for \"hey vexal\"");
    person.says("hey quorbit");
    person.says("hey vexal");
    person.appliance.await(sim::kUi, {{"event", "wake-up"}});
    person.appliance.awaitState("Recording");
    EXPECT_EQ(person.appliance.count(sim::kUi, {{"event", "wake-up"}}), 1);
    const std::string log = person.appliance.serviceLog();
    EXPECT_EQ(log.find("wuw: hey quorbit"), std::string::npos);
    EXPECT_NE(log.find("wuw: hey vexal"), std::string::npos);
}

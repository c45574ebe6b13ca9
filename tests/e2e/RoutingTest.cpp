// SPDX-License-Identifier: Apache-2.0
// Which application a command reaches.
#include <gtest/gtest.h>

#include "Person.h"

TEST(AWebSearch, OpensTheSearchPageInTheViewer) {
    Person person;
    person.wakes();
    person.says("search for apple pie");
    person.appliance.await(sim::kViewer, {{"event", "opened"}, {"uri", "https://www.google.com/search?q=apple pie"}});
}

TEST(ARecipeCommand, ReachesOnlyOneRecipeApplication) {
    Person person;
    const auto reaches = [&person](const char* application, const std::string& command) {
        person.wakes();
        person.says(command);
        person.appliance.await(application, {{"event", "voice result"}, {"text", command}});
    };
    reaches(sim::kRecipeApps[0], "show me the recipe for pancakes");
    reaches(sim::kRecipeApps[1], "show me the deli cook recipe for pancakes");
    // A misrouted copy of the first command would have arrived before the second.
    for (const char* application : sim::kRecipeApps) {
        EXPECT_EQ(person.appliance.events().countEver(application, {{"event", "voice result"}}), 1) << application;
    }
}

// SPDX-License-Identifier: Apache-2.0
// To whom a command goes.
#include <gtest/gtest.h>

#include "Person.h"

TEST(AWebSearch, OpensTheSearchPageInTheViewer) {
    Person person;
    person.wakes();
    person.says("search for apple pie");
    person.appliance.await(sim::kViewer, {{"event", "opened"}, {"uri", "https://www.google.com/search?q=apple pie"}});
}

TEST(ARecipeCommand, ReachesOneRecipeApplicationOnly) {
    Person person;
    const auto reaches = [&person](const char* application, const std::string& command) {
        person.wakes();
        person.says(command);
        person.appliance.await(application, {{"event", "voice result"}, {"text", command}});
    };
    reaches(sim::kRecipeApps[0], "show me the recipe for pancakes");
    reaches(sim::kRecipeApps[1], "show me the deli cook recipe for pancakes");
    // Each was told of its own command; what went astray before the second would have come by now.
    for (const char* application : sim::kRecipeApps) {
        EXPECT_EQ(person.appliance.countEver(application, {{"event", "voice result"}}), 1) << application;
    }
}

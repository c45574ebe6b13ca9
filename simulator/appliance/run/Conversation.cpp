// SPDX-License-Identifier: Apache-2.0
#include "appliance/run/Conversation.h"

namespace sim {

namespace {

struct Turn {
    const char* command;
    const char* application;  // that carries it out
    const char* event;        // that the application then records
};

constexpr Turn kTurns[] = {
    {"open music", kMusic, "launch"},
    {"go to the home screen", kHomeScreen, "launch"},
    {"close music", kMusic, "closed"},
    {"show me the recipe for pancakes", kRecipeApps[0], "voice result"},
    {"search for apple pie", kViewer, "opened"},
};

// Waits until the users have come from the hub to the local database.
void awaitUsers(Appliance& appliance, const std::vector<std::string>& names) {
    until("the users of the household are stored", [&] {
        appliance.events().read();
        return appliance.users() == names;
    });
    appliance.record().write("users", {{"names", names}});
}

void changeHousehold(Appliance& appliance) {
    appliance.hub().families(Event::parse(
        R"([{"id": "f1", "name": "Home", "users": [{"id": "u1", "name": "Ann"}, {"id": "u4", "name": "Dora"}]}])"));
    appliance.announceProfile();
    awaitUsers(appliance, {"Ann", "Dora"});
}

}  // namespace

void converse(Appliance& appliance) {
    awaitUsers(appliance, {"Ann", "Ben", "Cleo"});
    for (const Turn& turn : kTurns) {
        appliance.wakeUp();
        appliance.say(turn.command);
        appliance.awaitState("Ready");
        appliance.await(turn.application, {{"event", turn.event}}, 5);
    }
    changeHousehold(appliance);
}

}  // namespace sim

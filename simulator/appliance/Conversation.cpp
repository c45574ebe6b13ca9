// SPDX-License-Identifier: Apache-2.0
#include "appliance/Conversation.h"

namespace sim {

namespace {

constexpr Turn kTurns[] = {
    {"open music", kMusic, "launch"},
    {"go to the home screen", kHomeScreen, "launch"},
    {"close music", kMusic, "closed"},
    {"show me the recipe for pancakes", "org.tizen.recipesvc", "voice result"},
    {"search for apple pie", kViewer, "opened"},
};

// The account's users reach the local database by way of the hub. An answer of the account service that comes too early
// costs 5 s.
void awaitUsers(Appliance& appliance, const std::vector<std::string>& names) {
    appliance.until("the household's users are stored", [&] {
        appliance.events().read();
        return appliance.users() == names;
    });
    appliance.record().write("users", {{"names", names}});
}

void receiveGuest(Appliance& appliance) {
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
    receiveGuest(appliance);
}

}  // namespace sim

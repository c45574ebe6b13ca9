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

}  // namespace

// The account's users reach the local database by way of the hub.
void awaitUsers(Appliance& appliance) {
    appliance.until("the household's users are stored", [&appliance] {
        appliance.events().read();
        return !appliance.users().empty();
    });
    appliance.record().write("users", {{"names", appliance.users()}});
}

void converse(Appliance& appliance) {
    awaitUsers(appliance);
    for (const Turn& turn : kTurns) {
        appliance.wakeUp();
        appliance.say(turn.command);
        appliance.awaitState("Ready");
        appliance.await(turn.application, {{"event", turn.event}}, 5);
    }
}

}  // namespace sim

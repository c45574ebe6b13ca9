// SPDX-License-Identifier: Apache-2.0
// The profile refresh: from the account service and the hub to the local database.
#include <gtest/gtest.h>

#include "Person.h"

namespace {

using Users = std::vector<sim::Database::Fields>;

const Users kHousehold{{{"userId", "u1"}, {"userName", "Ann"}},
                       {{"userId", "u2"}, {"userName", "Ben"}},
                       {{"userId", "u3"}, {"userName", "Cleo"}}};

// A service that has stored the complete household.
struct Household : Person {
    Household() { untilStored(kHousehold); }

    void untilStored(const Users& users) {
        sim::until(
            "the users are stored", [&] { return appliance.table("Profile", "Profile") == users; }, 20);
    }
};

}  // namespace

TEST(TheStartOfTheService, StoresTheUsersOfTheHousehold) {
    Household household;
}

TEST(AnAnnouncedChange, UpdatesTheUsers) {
    Household household;
    household.appliance.hub().families(
        {{{"id", "f9"}, {"name", "Boat"}, {"users", {{{"id", "u9"}, {"name", "Zoë"}}}}}});
    household.appliance.announceProfile();
    household.untilStored({{{"userId", "u9"}, {"userName", "Zoë"}}});
}

TEST(AHubThatFailsAtTheSecondFamily, LeavesTheUsersOfTheFirst) {
    Household household;
    // The fourth request, after those for the hub connection, the families, and the users of the first.
    household.appliance.hub().faults({{{"request", 4}, {"kind", "error"}, {"status", 500}}});
    household.appliance.announceProfile();
    household.untilStored({kHousehold[0], kHousehold[1]});
}

TEST(AHubThatSendsGarbage, LeavesNoUsers) {
    Household household;
    household.appliance.hub().faults({{{"request", 2}, {"kind", "garbage"}}});
    household.appliance.announceProfile();
    household.untilStored({});
}

TEST(SigningOut, LeavesNoUsers) {
    Household household;
    household.appliance.control(sim::kAccount, "behavior", "signed out");
    household.appliance.announceProfile();
    household.untilStored({});
}

TEST(ASilentAccountService, LeavesNoUsersAfterFiveSeconds) {
    Household household;
    household.appliance.control(sim::kAccount, "behavior", "silent");
    household.appliance.announceProfile();
    const double announced = sim::monotonicNow();
    household.untilStored({});
    EXPECT_GT(sim::monotonicNow() - announced, 4.9);
}

TEST(AChangeWithoutANetwork, LeavesTheStoredUsers) {
    Household household;
    household.losesNetwork();
    household.appliance.hub().families(nlohmann::json::array());
    household.appliance.announceProfile();
    sim::until("the service logs the reason",
               [&] { return household.appliance.service().log().find("No network connection.") != std::string::npos; });
    EXPECT_EQ(household.appliance.table("Profile", "Profile"), kHousehold);
}

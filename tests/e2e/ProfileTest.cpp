// SPDX-License-Identifier: Apache-2.0
// The household's users: from the account service and the hub into the local database.
#include <gtest/gtest.h>

#include "Person.h"

namespace {

using Users = std::vector<sim::Database::Fields>;

const Users kHousehold{{{"userId", "u1"}, {"userName", "Ann"}},
                       {{"userId", "u2"}, {"userName", "Ben"}},
                       {{"userId", "u3"}, {"userName", "Cleo"}}};

// A service that has stored the whole household.
struct Household : Person {
    Household() { untilStored(kHousehold); }

    void untilStored(const Users& users) {
        appliance.until(
            "the users are stored", [&] { return appliance.table("Profile", "Profile") == users; }, 20);
    }
    void announce() { appliance.order(sim::kAccount, "notify"); }
};

}  // namespace

TEST(TheHouseholdsUsers, AreStoredWhenTheServiceStarts) {
    Household household;
}

TEST(AChangeThatTheAccountServiceAnnounces, IsFetched) {
    Household household;
    household.appliance.hub().families(
        {{{"id", "f9"}, {"name", "Boat"}, {"users", {{{"id", "u9"}, {"name", "Zoë"}}}}}});
    household.announce();
    household.untilStored({{{"userId", "u9"}, {"userName", "Zoë"}}});
}

TEST(AHubThatFailsAtTheSecondFamily, LeavesTheUsersOfTheFirst) {
    Household household;
    // After the session, the families, and the users of the first.
    household.appliance.hub().faults({{{"request", 4}, {"kind", "error"}, {"status", 500}}});
    household.announce();
    household.untilStored({kHousehold[0], kHousehold[1]});
}

TEST(AHubThatAnswersWithGarbage, LeavesNoUsers) {
    Household household;
    household.appliance.hub().faults({{{"request", 2}, {"kind", "garbage"}}});
    household.announce();
    household.untilStored({});
}

TEST(AnAccountThatSignsOut, LeavesNoUsers) {
    Household household;
    household.appliance.order(sim::kAccount, "behave", "signed out");
    household.announce();
    household.untilStored({});
}

TEST(ASilentAccountService, LeavesNoUsersAfterFiveSeconds) {
    Household household;
    household.appliance.order(sim::kAccount, "behave", "silent");
    household.announce();
    const double announced = sim::monotonicNow();
    household.untilStored({});
    EXPECT_GT(sim::monotonicNow() - announced, 4.9);
}

TEST(AChangeWithoutANetwork, LeavesTheStoredUsers) {
    Household household;
    household.losesNetwork();
    household.appliance.hub().families(nlohmann::json::array());
    household.announce();
    household.appliance.until("the service says why", [&] {
        return household.appliance.serviceLog().find("No network connection.") != std::string::npos;
    });
    EXPECT_EQ(household.appliance.table("Profile", "Profile"), kHousehold);
}

// SPDX-License-Identifier: Apache-2.0
// The simulated morning briefing, the hub, and the local database.
#include <gtest/gtest.h>

#include <fstream>

#include "Output.h"

using sim::Appliance;

namespace {

using Records = std::vector<sim::Database::Fields>;

Records briefing(const Appliance& appliance) {
    return appliance.table("Morning Brief", "MorningBrief");
}

Records playing(const std::string& state) {
    return {{{"isMorningBriefPlaying", state}}};
}

// Logs in to the hub with the account of this appliance.
nlohmann::json logIn(const Appliance& appliance, const nlohmann::json& account, const std::string& token) {
    const nlohmann::json body{{"guid", account["guid"]}, {"client_id", account["client_id"]}};
    return nlohmann::json::parse(
        output(appliance, {"curl", "-s", "-H", "Authorization: Bearer " + token, "-d", body.dump(),
                           account["server_uri"].get<std::string>() + "/v1/session"}));
}

}  // namespace

TEST(TheMorningBriefing, WritesWhetherItPlays) {
    Appliance appliance;
    appliance.launch(sim::kBriefing);
    EXPECT_EQ(briefing(appliance), playing("Play"));
    appliance.control(sim::kBriefing, "write", "play");
    EXPECT_EQ(briefing(appliance), playing("play"));
    appliance.control(sim::kBriefing, "stop");
    EXPECT_EQ(briefing(appliance), playing("Stop"));
}

TEST(TheHub, AcceptsTheCredentialsOfTheAccountService) {
    Appliance appliance;
    std::ifstream file(appliance.folder() / "account.json");
    const auto account = nlohmann::json::parse(file);
    EXPECT_TRUE(logIn(appliance, account, account["access_token"]).contains("session_token"));
    EXPECT_FALSE(logIn(appliance, account, "another token").contains("session_token"));
    appliance.hub().faults({{{"request", 1}, {"kind", "error"}, {"status", 503}}});
    EXPECT_FALSE(logIn(appliance, account, account["access_token"]).contains("session_token"));
    EXPECT_TRUE(logIn(appliance, account, account["access_token"]).contains("session_token"));
}

TEST(ATableThatDoesNotExist, HasNoRecords) {
    Appliance appliance;
    EXPECT_EQ(appliance.table("Profile", "Profile"), Records{});
}

// SPDX-License-Identifier: Apache-2.0
// The applications beside the service that answer, play and write, each by itself.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "appliance/Appliance.h"
#include "lib/Application.h"
#include "lib/Database.h"

using sim::Appliance;

namespace {

constexpr char kReplyXml[] =
    "<interface name='org.orvane.Application1'><method name='Reply'><arg type='s' direction='in'/>"
    "<arg type='i' direction='in'/><arg type='a(aybaay)' direction='in'/></method></interface>";

struct Reply {
    std::string token;
    int result;
    sim::Extras extras;
};

// An application that asks for the state of the account and waits for the answer.
class Asker {
public:
    Asker() {
        mBus.serve("/org/orvane/Application", kReplyXml,
                   [this](const std::string&, const std::string&, GVariant* arguments) -> GVariant* {
                       const char* token = nullptr;
                       Reply reply;
                       GVariant* extras = nullptr;
                       g_variant_get(arguments, "(&si@a(aybaay))", &token, &reply.result, &extras);
                       reply.token = token;
                       reply.extras = sim::unpackExtras(sim::Pointer<GVariant>(extras).get());
                       replies.push_back(reply);
                       return nullptr;
                   });
    }

    void ask(const char* token) {
        mBus.call(sim::kAccount, "/org/orvane/Application", "org.orvane.Application1", "Launch",
                  g_variant_new("(ss@a(aybaay)s)", "get_service_status", "", sim::packExtras({}), token));
    }
    const Reply& awaitReply(Appliance& appliance) {
        appliance.until("the account service answers", [this] {
            while (g_main_context_iteration(nullptr, FALSE) != FALSE) {
            }
            return !replies.empty();
        });
        return replies.front();
    }

    std::vector<Reply> replies;

private:
    sim::Bus mBus{getenv("DBUS_SESSION_BUS_ADDRESS")};
};

void signIn(const Appliance& appliance) {
    appliance.folder().write("account.json", R"({"guid": "g1", "access_token": "t1", "client_id": "c1",
                                                 "server_uri": "http://127.0.0.1:1"})");
}

std::vector<std::string> streams(const Appliance& appliance, const std::string& state) {
    const std::string list = appliance.folder() / "streams";
    std::filesystem::remove(list);
    sim::Process({"pactl", "--format=json", "list", "sink-inputs"}, list).wait();
    std::ifstream stream(list);
    std::vector<std::string> roles;
    for (const auto& input : nlohmann::json::parse(stream)) {
        if (input["corked"] == (state == "paused")) {
            roles.push_back(input["properties"].value("media.role", ""));
        }
    }
    return roles;
}

void tellUi(const char* state) {
    sim::Bus(getenv("DBUS_SESSION_BUS_ADDRESS"))
        .call(sim::kUi, "/org/orvane/Application", "org.orvane.Application1", "Launch",
              g_variant_new("(ss@a(aybaay)s)", (std::string(sim::kOperationBase) + "state_change").c_str(), "",
                            sim::packExtras({{"key_state_change", {state}}, {"key_error_type", {"None"}}}), ""));
}

void startMusic(Appliance& appliance) {
    appliance.launch(sim::kMusic);
    appliance.await(sim::kMusic, {{"event", "volume"}, {"percent", 100}});
    appliance.await(sim::kMusic, {{"event", "playing"}});
    appliance.turnPage();
}

void awaitVolume(Appliance& appliance, int percent) {
    appliance.await(sim::kMusic, {{"event", "volume"}, {"percent", percent}});
}

constexpr char kBriefingTable[] = "MorningBrief";
using Records = std::vector<sim::Database::Fields>;

Records briefing(const std::string& state) {
    return {{{"isMorningBriefPlaying", state}}};
}

}  // namespace

TEST(TheAccountService, AnswersWithItsCredentialsWhenSomebodyHasSignedIn) {
    Appliance appliance;
    signIn(appliance);
    Asker asker;
    asker.ask("first");
    const Reply& reply = asker.awaitReply(appliance);
    EXPECT_EQ(reply.token, "first");
    EXPECT_EQ(reply.result, 0);
    const sim::Extras expected{{"quorbit_account_status", {"true"}},
                               {"quorbit_account_guid", {"g1"}},
                               {"quorbit_account_access_token", {"t1"}},
                               {"quorbit_account_client_id", {"c1"}},
                               {"quorbit_account_server_uri", {"http://127.0.0.1:1"}}};
    EXPECT_EQ(reply.extras, expected);
}

TEST(TheAccountService, SaysThatNobodyHasSignedIn) {
    Appliance appliance;
    signIn(appliance);
    appliance.order(sim::kAccount, "behave", "signed out");
    Asker asker;
    asker.ask("t");
    const Reply& reply = asker.awaitReply(appliance);
    EXPECT_EQ(reply.result, 0);
    EXPECT_EQ(reply.extras, (sim::Extras{{"quorbit_account_status", {"false"}}}));
}

TEST(TheAccountService, FailsWithAReason) {
    Appliance appliance;
    appliance.order(sim::kAccount, "behave", "failing");
    Asker asker;
    asker.ask("t");
    const Reply& reply = asker.awaitReply(appliance);
    EXPECT_EQ(reply.result, -1);
    EXPECT_EQ(reply.extras.count("errorMessage"), 1u);
}

// What is asked first is answered last, and what a silent service was asked never.
TEST(TheAccountService, CanBeSlowOrSilent) {
    Appliance appliance;
    Asker asker;
    appliance.order(sim::kAccount, "behave", "silent");
    asker.ask("silent");
    appliance.order(sim::kAccount, "delay", "300");
    appliance.order(sim::kAccount, "behave", "slow");
    asker.ask("slow");
    const double asked = sim::monotonicNow();
    EXPECT_EQ(asker.awaitReply(appliance).token, "slow");
    EXPECT_GE(sim::monotonicNow() - asked, 0.29);
    EXPECT_EQ(asker.replies.size(), 1u);
    EXPECT_THROW(appliance.order(sim::kAccount, "behave", "moody"), std::runtime_error);
}

TEST(TheMusicPlayer, PlaysAStreamThatCanBePausedAndEndsWithIt) {
    Appliance appliance;
    appliance.launch(sim::kMusic);
    appliance.await(sim::kMusic, {{"event", "playing"}});
    EXPECT_EQ(streams(appliance, "playing"), std::vector<std::string>{"music"});
    appliance.order(sim::kMusic, "pause");
    appliance.await(sim::kMusic, {{"event", "paused"}});
    EXPECT_EQ(streams(appliance, "playing"), std::vector<std::string>{});
    appliance.turnPage();
    appliance.order(sim::kMusic, "play");
    appliance.await(sim::kMusic, {{"event", "playing"}});
    appliance.kill(sim::kMusic);
    appliance.until("its stream has gone", [&] { return streams(appliance, "playing").empty(); });
}

TEST(TheMusicPlayer, IsHeardOnTheLoudspeakerAndNotByTheMicrophone) {
    Appliance appliance;
    appliance.launch(sim::kMusic);
    appliance.await(sim::kMusic, {{"event", "playing"}});
    const auto loudest = [&appliance](const std::string& source) {
        const std::string file = appliance.folder() / (source + ".raw");
        sim::Process recorder({"parec", "--raw", "--latency-msec=20", "--rate=16000", "--channels=1", "--format=s16le",
                               "--device=" + source, file},
                              appliance.folder() / "parec.log");
        appliance.until("half a second is recorded",
                        [&file] { return std::filesystem::exists(file) && std::filesystem::file_size(file) > 16000; });
        std::ifstream stream(file, std::ios::binary);
        int peak = 0;
        for (int16_t sample = 0; stream.read(reinterpret_cast<char*>(&sample), sizeof sample);) {
            peak = std::max(peak, std::abs(static_cast<int>(sample)));
        }
        return peak;
    };
    EXPECT_GT(loudest("loudspeaker.monitor"), 4000);
    EXPECT_EQ(loudest("mic"), 0);
}

TEST(TheMusicPlayer, RecordsTheVolumeWheneverItMoves) {
    Appliance appliance;
    appliance.launch(sim::kMusic);
    appliance.await(sim::kMusic, {{"event", "volume"}, {"percent", 100}});
    sim::Process({"pactl", "set-sink-volume", "loudspeaker", "40%"}, appliance.folder() / "pactl.log").wait();
    appliance.await(sim::kMusic, {{"event", "volume"}, {"percent", 40}});
}

TEST(TheMusicPlayer, PlaysOnWhenTheSoundServerHasComeBack) {
    Appliance appliance;
    appliance.launch(sim::kMusic);
    appliance.await(sim::kMusic, {{"event", "playing"}});
    appliance.turnPage();
    appliance.restartSound();
    appliance.await(sim::kMusic, {{"event", "playing"}});
    EXPECT_EQ(streams(appliance, "playing"), std::vector<std::string>{"music"});
}

TEST(TheMorningBriefing, WritesWhetherItPlays) {
    Appliance appliance;
    appliance.launch(sim::kBriefing);
    EXPECT_EQ(appliance.table("Morning Brief", kBriefingTable), briefing("Play"));
    appliance.order(sim::kBriefing, "write", "play");
    EXPECT_EQ(appliance.table("Morning Brief", kBriefingTable), briefing("play"));
    appliance.order(sim::kBriefing, "stop");
    EXPECT_EQ(appliance.table("Morning Brief", kBriefingTable), briefing("Stop"));
}

TEST(TheUi, ShowsEveryChangeOfTheLevelAndItsRhythmAfterARecording) {
    Appliance appliance;
    tellUi("Recording");
    appliance.awaitState("Recording");
    for (const int32_t level : {-40, -12, -30}) {
        std::ofstream("/tmp/OrvaneVolume.tmp", std::ios::binary)
            .write(reinterpret_cast<const char*>(&level), sizeof level);
        appliance.await(sim::kUi, {{"event", "level"}, {"level", level}});
    }
    tellUi("Processing");
    const sim::Event rhythm = appliance.await(sim::kUi, {{"event", "levels"}});
    EXPECT_EQ(rhythm["changes"], 3);
    EXPECT_GT(rhythm["period"], 0);
    EXPECT_GE(rhythm["longest"], rhythm["period"]);
}

TEST(TheMusic, IsTurnedDownWhileTheAssistantListensAndThinksAndComesBackAfterwards) {
    Appliance appliance;
    startMusic(appliance);
    tellUi("Recording");
    awaitVolume(appliance, 13);
    appliance.turnPage();
    tellUi("Processing");
    tellUi("Ready");
    awaitVolume(appliance, 100);
    EXPECT_EQ(appliance.count(sim::kMusic, {{"event", "volume"}, {"percent", 93}}), 1);
}

TEST(TheVolume, StaysWhenNothingPlays) {
    Appliance appliance;
    startMusic(appliance);
    appliance.order(sim::kMusic, "pause");
    appliance.await(sim::kMusic, {{"event", "paused"}});
    tellUi("Recording");
    appliance.await(sim::kUi, {{"event", "fade"}, {"line", "not turned down: nothing plays, or it is low already"}});
    EXPECT_EQ(appliance.count(sim::kMusic, {{"event", "volume"}}), 0);
}

TEST(TheVolume, GoesDownForTheMorningBriefing) {
    Appliance appliance;
    startMusic(appliance);
    appliance.order(sim::kMusic, "pause");
    appliance.await(sim::kMusic, {{"event", "paused"}});
    appliance.launch(sim::kBriefing);
    tellUi("Recording");
    awaitVolume(appliance, 13);
}

TEST(TheVolume, ComesBackWhenTheUiDiesWhileItIsDown) {
    Appliance appliance;
    startMusic(appliance);
    tellUi("Recording");
    awaitVolume(appliance, 13);
    appliance.turnPage();
    appliance.kill(sim::kUi);
    awaitVolume(appliance, 100);
}

TEST(TheHub, LetsTheAccountOfTheAccountServiceIn) {
    Appliance appliance;
    std::ifstream file(appliance.folder() / "account.json");
    const auto account = nlohmann::json::parse(file);
    const auto post = [&](const std::string& token) {
        const std::string answer = appliance.folder() / "answer";
        std::filesystem::remove(answer);
        const nlohmann::json body{{"guid", account["guid"]}, {"client_id", account["client_id"]}};
        sim::Process({"curl", "-s", "-H", "Authorization: Bearer " + token, "-d", body.dump(),
                      account["server_uri"].get<std::string>() + "/v1/session"},
                     answer)
            .wait();
        std::ifstream stream(answer);
        return nlohmann::json::parse(stream);
    };
    EXPECT_TRUE(post(account["access_token"]).contains("session_token"));
    EXPECT_FALSE(post("somebody else's").contains("session_token"));
    appliance.hub().faults({{{"request", 1}, {"kind", "error"}, {"status", 503}}});
    EXPECT_FALSE(post(account["access_token"]).contains("session_token"));
    EXPECT_TRUE(post(account["access_token"]).contains("session_token"));
}

TEST(ATableThatNobodyHasWritten, HasNoRecords) {
    Appliance appliance;
    EXPECT_EQ(appliance.table("Profile", "Profile"), Records{});
}

// SPDX-License-Identifier: Apache-2.0
// The simulated music player without the service.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "Music.h"
#include "RawRecording.h"

using sim::Appliance;

namespace {

// The media roles of the streams that play.
std::vector<std::string> playingRoles(const Appliance& appliance) {
    const std::string list = appliance.folder() / "streams";
    std::filesystem::remove(list);
    sim::Process({"pactl", "--format=json", "list", "sink-inputs"}, list).wait();
    std::ifstream stream(list);
    std::vector<std::string> roles;
    for (const auto& input : nlohmann::json::parse(stream)) {
        if (input["corked"] == false) {
            roles.push_back(input["properties"].value("media.role", ""));
        }
    }
    return roles;
}

}  // namespace

TEST(TheMusicPlayer, PlaysAStreamThatCanBePausedAndThatEndsWithThePlayer) {
    Appliance appliance;
    startMusic(appliance);
    EXPECT_EQ(playingRoles(appliance), std::vector<std::string>{"music"});
    pauseMusic(appliance);
    EXPECT_EQ(playingRoles(appliance), std::vector<std::string>{});
    appliance.turnPage();
    appliance.control(sim::kMusic, "play");
    appliance.await(sim::kMusic, {{"event", "playing"}});
    appliance.kill(sim::kMusic);
    sim::until("the stream has ended", [&] { return playingRoles(appliance).empty(); });
}

TEST(TheMusicPlayer, PlaysOnTheLoudspeakerWithoutReachingTheMicrophone) {
    constexpr std::size_t kHalfASecond = 8000;
    Appliance appliance;
    startMusic(appliance);
    const RawRecording loudspeaker(appliance, "loudspeaker.monitor");
    loudspeaker.await(kHalfASecond);
    EXPECT_GT(loudspeaker.loudSamples(4000), 0);
    const RawRecording microphone(appliance, "mic");
    microphone.await(kHalfASecond);
    EXPECT_EQ(microphone.loudSamples(0), 0);
}

TEST(TheMusicPlayer, RecordsEveryChangeOfTheVolume) {
    Appliance appliance;
    startMusic(appliance);
    sim::Process({"pactl", "set-sink-volume", "loudspeaker", "40%"}, appliance.folder() / "pactl.log").wait();
    awaitVolume(appliance, 40);
}

TEST(TheMusicPlayer, PlaysAgainAfterTheSoundServerHasRestarted) {
    Appliance appliance;
    startMusic(appliance);
    appliance.restartSound();
    appliance.await(sim::kMusic, {{"event", "playing"}});
    EXPECT_EQ(playingRoles(appliance), std::vector<std::string>{"music"});
}

// SPDX-License-Identifier: Apache-2.0
// The simulated appliance without the service.
#include <gtest/gtest.h>

#include <cstdlib>

#include "Output.h"
#include "RawRecording.h"
#include "appliance/Appliance.h"
#include "shared/Request.h"

using sim::Appliance;

namespace {

std::uint32_t networkState(const gio::Connection& system) {
    const auto [state] =
        system
            .call({sim::kNetwork, "/org/freedesktop/NetworkManager", "org.freedesktop.DBus.Properties"}, "Get",
                  gio::Variant::tuple("org.freedesktop.NetworkManager", "State"))
            .fields<gio::Variant>();
    return state.as<std::uint32_t>();
}

}  // namespace

TEST(AnInstalledApplication, StartsWithItsFirstRequestAndEndsWithAClose) {
    Appliance appliance;
    EXPECT_FALSE(appliance.runs(sim::kMusic));
    appliance.launch(sim::kMusic);
    appliance.await(sim::kMusic, {{"event", "launch"}});
    EXPECT_TRUE(appliance.runs(sim::kMusic));
    sim::sendClose(appliance.session(), sim::kMusic);
    appliance.await(sim::kMusic, {{"event", "ended"}});
    sim::until("its name is free", [&] { return !appliance.runs(sim::kMusic); });
}

TEST(AnApplicationThatIsNotInstalled, CannotBeLaunched) {
    Appliance appliance;
    EXPECT_THROW(appliance.launch("org.orvane.sim.nothing"), std::runtime_error);
}

TEST(AWebAddress, OpensInTheViewer) {
    Appliance appliance;
    EXPECT_EQ(output(appliance, {"gio", "open", "https://orvane.example/search?q=apple pie"}), "");
    const auto opened = appliance.await(sim::kViewer, {{"event", "opened"}});
    EXPECT_EQ(opened["uri"].get<std::string>().rfind("https://orvane.example/search?q=apple", 0), 0u);
}

TEST(TheNetworkManager, ReportsTheNetworkThatATestChooses) {
    Appliance appliance;
    const auto state = [&appliance] { return networkState(appliance.system()); };
    EXPECT_EQ(state(), 70u);
    appliance.setNetwork("none");
    EXPECT_EQ(state(), 20u);
    appliance.setNetwork("wifi");
    EXPECT_EQ(state(), 70u);
    EXPECT_THROW(appliance.setNetwork("smoke signals"), std::runtime_error);
    appliance.setNetwork("none");
    appliance.stopNetworkManager();
    EXPECT_THROW(state(), std::runtime_error);
    appliance.startNetworkManager();
    EXPECT_EQ(state(), 70u);
}

// The voice is far louder than the noise of the room.
TEST(SpeechInTheRoom, ReachesTheMicrophone) {
    Appliance appliance;
    const RawRecording recording(appliance, "mic");
    recording.await(1);
    appliance.say("hey quorbit");
    sim::until("the voice has been recorded", [&] { return recording.loudSamples(3000) > 500; });
}

TEST(AnAppliance, KeepsItsEnvironmentInItsOwnDirectory) {
    Appliance appliance;
    const std::string folder = appliance.folder().path();
    for (const char* name : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"}) {
        EXPECT_EQ(std::string(getenv(name)).rfind(folder, 0), 0u) << name;
    }
    for (const char* name : {"DBUS_SESSION_BUS_ADDRESS", "DBUS_SYSTEM_BUS_ADDRESS", "PULSE_SERVER"}) {
        EXPECT_NE(std::string(getenv(name)).find(folder), std::string::npos) << name;
    }
    EXPECT_STREQ(getenv("ORVANE_LOG"), "stderr");  // not the journal of the machine
}

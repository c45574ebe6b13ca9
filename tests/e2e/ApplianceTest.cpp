// SPDX-License-Identifier: Apache-2.0
// The simulated appliance by itself, before anyone listens to it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "appliance/Appliance.h"
#include "lib/Application.h"

using sim::Appliance;

namespace {

void startUiWith(sim::Bus& bus, const char* operation, const sim::Extras& extras) {
    bus.call(sim::kUi, "/org/orvane/Application", "org.orvane.Application1", "Launch",
             g_variant_new("(ss@a(aybaay)s)", (std::string(sim::kOperationBase) + operation).c_str(), "",
                           sim::packExtras(extras), ""));
}

std::string output(const Appliance& appliance, const std::vector<std::string>& words) {
    const std::string file = appliance.folder() / "output";
    std::filesystem::remove(file);
    sim::Process(words, file).wait();
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace

TEST(AnInstalledApplication, IsStartedByItsFirstRequestAndEndsWhenAskedToClose) {
    Appliance appliance;
    EXPECT_FALSE(appliance.runs("org.orvane.sim.music"));
    appliance.launch("org.orvane.sim.music");
    appliance.await("org.orvane.sim.music", {{"event", "launch"}});
    EXPECT_TRUE(appliance.runs("org.orvane.sim.music"));
    sim::Bus bus(getenv("DBUS_SESSION_BUS_ADDRESS"));
    bus.call("org.orvane.sim.music", "/org/orvane/Application", "org.orvane.Application1", "Close", nullptr);
    appliance.await("org.orvane.sim.music", {{"event", "ended"}});
    appliance.until("its name is free", [&] { return !appliance.runs("org.orvane.sim.music"); });
}

TEST(AnApplicationThatIsNotInstalled, CannotBeLaunched) {
    Appliance appliance;
    EXPECT_THROW(appliance.launch("org.orvane.sim.nothing"), std::runtime_error);
}

TEST(TheUi, AcknowledgesReadyByTheSetting) {
    Appliance appliance;
    sim::Bus bus(getenv("DBUS_SESSION_BUS_ADDRESS"));
    startUiWith(bus, "state_change", {{"key_state_change", {"Ready"}}, {"key_error_type", {"None"}}});
    appliance.awaitState("Ready");
    appliance.until("the setting is true", [&] {
        return output(appliance, {"dconf", "read", "/db/orvane/manager/response"}) == "true\n";
    });
}

TEST(TheUi, ThatIsToldNotToNeverAcknowledges) {
    Appliance appliance;
    sim::Bus bus(getenv("DBUS_SESSION_BUS_ADDRESS"));
    appliance.launch(sim::kUi);
    appliance.order(sim::kUi, "acknowledge", "no");
    startUiWith(bus, "state_change", {{"key_state_change", {"Ready"}}, {"key_error_type", {"None"}}});
    appliance.awaitState("Ready");
    // Its requests come in order: when this one is shown, Ready has been dealt with.
    startUiWith(bus, "state_change", {{"key_state_change", {"Idle"}}, {"key_error_type", {"None"}}});
    appliance.awaitState("Idle");
    EXPECT_EQ(output(appliance, {"dconf", "read", "/db/orvane/manager/response"}), "false\n");
}

TEST(TheUi, ShowsPartialTextFromItsPortOnly) {
    Appliance appliance;
    sim::Bus bus(getenv("DBUS_SESSION_BUS_ADDRESS"));
    const auto send = [&bus](const char* port) {
        GVariantBuilder entries;
        g_variant_builder_init(&entries, G_VARIANT_TYPE("a(ayay)"));
        g_variant_builder_add(&entries, "(@ay@ay)", sim::bytes("key_partial_result"), sim::bytes("open the"));
        g_variant_builder_add(&entries, "(@ay@ay)", sim::bytes("key_is_final_result"), sim::bytes("False"));
        bus.call(sim::kUi, "/org/orvane/MessagePort", "org.orvane.MessagePort1", "Send",
                 g_variant_new("(s@a(ayay)ss)", port, g_variant_builder_end(&entries), sim::kServiceId, ""));
    };
    send("partial");
    appliance.await(sim::kUi, {{"event", "partial"}, {"text", "open the"}, {"final", false}});
    EXPECT_THROW(send("elsewhere"), std::runtime_error);
}

TEST(AnAddress, GoesToTheViewerAsTheDefaultApplication) {
    Appliance appliance;
    EXPECT_EQ(output(appliance, {"gio", "open", "https://orvane.example/search?q=apple pie"}), "");
    const auto opened = appliance.await(sim::kViewer, {{"event", "opened"}});
    EXPECT_EQ(opened["uri"].get<std::string>().rfind("https://orvane.example/search?q=apple", 0), 0u);
}

TEST(TheNetwork, IsWhatTheTestChooses) {
    Appliance appliance;
    sim::Bus system(getenv("DBUS_SYSTEM_BUS_ADDRESS"));
    const auto state = [&system] {
        const auto answer =
            system.call(sim::kNetwork, "/org/freedesktop/NetworkManager", "org.freedesktop.DBus.Properties", "Get",
                        g_variant_new("(ss)", "org.freedesktop.NetworkManager", "State"));
        GVariant* value = nullptr;
        g_variant_get(answer.get(), "(v)", &value);
        return g_variant_get_uint32(sim::Pointer<GVariant>(value).get());
    };
    EXPECT_EQ(state(), 70u);
    appliance.network("none");
    EXPECT_EQ(state(), 20u);
    appliance.network("wifi");
    EXPECT_EQ(state(), 70u);
    EXPECT_THROW(appliance.network("smoke signals"), std::runtime_error);
    appliance.network("none");
    appliance.stopNetworkManager();
    EXPECT_FALSE(system.hasOwner(sim::kNetwork));
    appliance.startNetworkManager();
    EXPECT_EQ(state(), 70u);
}

// What the microphone hears is written as raw samples; the voice is far above the noise.
TEST(WhatIsSaidInTheRoom, IsHeardByItsMicrophone) {
    Appliance appliance;
    const std::string heard = appliance.folder() / "heard.raw";
    sim::Process recorder(
        {"parec", "--raw", "--latency-msec=20", "--rate=16000", "--channels=1", "--format=s16le", heard},
        appliance.folder() / "parec.log");
    appliance.until("the recorder records",
                    [&] { return std::filesystem::exists(heard) && std::filesystem::file_size(heard) > 0; });
    appliance.say("hey quorbit");
    const auto loud = [&heard] {
        std::ifstream file(heard, std::ios::binary);
        int count = 0;
        for (int16_t sample = 0; file.read(reinterpret_cast<char*>(&sample), sizeof sample);) {
            count += std::abs(sample) > 3000 ? 1 : 0;
        }
        return count;
    };
    appliance.until("the voice has arrived", [&] { return loud() > 500; });
}

TEST(AnAppliance, TouchesNothingOutsideItsOwnFolder) {
    Appliance appliance;
    const std::string folder = appliance.folder().path();
    for (const char* name : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"}) {
        EXPECT_EQ(std::string(getenv(name)).rfind(folder, 0), 0u) << name;
    }
    for (const char* name : {"DBUS_SESSION_BUS_ADDRESS", "DBUS_SYSTEM_BUS_ADDRESS", "PULSE_SERVER"}) {
        EXPECT_NE(std::string(getenv(name)).find(folder), std::string::npos) << name;
    }
    EXPECT_STREQ(getenv("ORVANE_LOG"), "stderr");  // not the person's journal
}

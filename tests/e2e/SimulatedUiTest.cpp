// SPDX-License-Identifier: Apache-2.0
// The simulated UI without the service.
#include <gtest/gtest.h>

#include <fstream>

#include "Ui.h"

using sim::Appliance;

TEST(TheSimulatedUi, AcknowledgesReadyInTheSettings) {
    Appliance appliance;
    sendState(appliance, "Ready");
    appliance.awaitState("Ready");
    sim::until("the setting is true", [] { return sim::settings::getBool(sim::kReadyAcknowledged); });
}

TEST(TheSimulatedUi, DoesNotAcknowledgeReadyWhenATestForbidsIt) {
    Appliance appliance;
    appliance.launch(sim::kUi);
    appliance.control(sim::kUi, "acknowledge", "no");
    sendState(appliance, "Ready");
    appliance.awaitState("Ready");
    // The UI handles requests in order, so it has finished with Ready when it records this one.
    sendState(appliance, "Idle");
    appliance.awaitState("Idle");
    EXPECT_FALSE(sim::settings::getBool(sim::kReadyAcknowledged));
}

TEST(TheSimulatedUi, AcceptsPartialResultsOnItsPortOnly) {
    Appliance appliance;
    sendPartialResult(appliance, "partial", "open the");
    appliance.await(sim::kUi, {{"event", "partial"}, {"text", "open the"}, {"final", false}});
    EXPECT_THROW(sendPartialResult(appliance, "elsewhere", "open the"), std::runtime_error);
}

TEST(TheSimulatedUi, RecordsEveryChangeOfTheLevelAndASummaryAfterTheRecording) {
    Appliance appliance;
    sendState(appliance, "Recording");
    appliance.awaitState("Recording");
    for (const int32_t level : {-40, -12, -30}) {
        std::ofstream("/tmp/OrvaneVolume.tmp", std::ios::binary)
            .write(reinterpret_cast<const char*>(&level), sizeof level);
        appliance.await(sim::kUi, {{"event", "level"}, {"level", level}});
    }
    sendState(appliance, "Processing");
    const sim::Event summary = appliance.await(sim::kUi, {{"event", "levels"}});
    EXPECT_EQ(summary["changes"], 3);
    EXPECT_GT(summary["period"], 0);
    EXPECT_GE(summary["longest"], summary["period"]);
}

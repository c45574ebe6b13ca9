// SPDX-License-Identifier: Apache-2.0
// The volume of the music, which the simulated UI fades with the product's volume controller.
#include <gtest/gtest.h>

#include "Music.h"
#include "Ui.h"

using sim::Appliance;

TEST(TheVolume, GoesDownDuringARecognitionSessionAndUpAfterIt) {
    Appliance appliance;
    startMusic(appliance);
    sendState(appliance, "Recording");
    awaitVolume(appliance, 13);
    appliance.turnPage();
    sendState(appliance, "Processing");
    sendState(appliance, "Ready");
    awaitVolume(appliance, 100);
    EXPECT_EQ(appliance.count(sim::kMusic, {{"event", "volume"}, {"percent", 93}}), 1);
}

TEST(TheVolume, StaysTheSameWhenNothingPlays) {
    Appliance appliance;
    startMusic(appliance);
    pauseMusic(appliance);
    sendState(appliance, "Recording");
    appliance.await(sim::kUi, {{"event", "fade"}, {"line", "no fade: nothing plays, or the level is already low"}});
    EXPECT_EQ(appliance.count(sim::kMusic, {{"event", "volume"}}), 0);
}

TEST(TheVolume, GoesDownForTheMorningBriefing) {
    Appliance appliance;
    startMusic(appliance);
    pauseMusic(appliance);
    appliance.launch(sim::kBriefing);
    sendState(appliance, "Recording");
    awaitVolume(appliance, 13);
}

TEST(TheVolume, GoesUpAgainWhenTheUiIsKilledWhileItIsDown) {
    Appliance appliance;
    startMusic(appliance);
    sendState(appliance, "Recording");
    awaitVolume(appliance, 13);
    appliance.turnPage();
    appliance.kill(sim::kUi);
    awaitVolume(appliance, 100);
}

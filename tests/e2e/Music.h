// SPDX-License-Identifier: Apache-2.0
// The simulated music player, and the volume that it records.
#pragma once

#include "appliance/Appliance.h"

// Returns when the music plays at full volume. Turns the page.
inline void startMusic(sim::Appliance& appliance) {
    appliance.launch(sim::kMusic);
    appliance.await(sim::kMusic, {{"event", "volume"}, {"percent", 100}});
    appliance.await(sim::kMusic, {{"event", "playing"}});
    appliance.turnPage();
}

inline void pauseMusic(sim::Appliance& appliance) {
    appliance.control(sim::kMusic, "pause");
    appliance.await(sim::kMusic, {{"event", "paused"}});
}

inline void awaitVolume(sim::Appliance& appliance, int percent) {
    appliance.await(sim::kMusic, {{"event", "volume"}, {"percent", percent}});
}

// SPDX-License-Identifier: Apache-2.0
// Plays a tune on the loudspeaker from its launch until it closes, with the media role "music". It records when it
// plays (events "playing" and "paused") and the volume of the loudspeaker (event "volume" with "percent"). Actions:
// play, pause.
#pragma once

#include "shared/Application.h"
#include "shared/Player.h"

namespace sim {

class MusicPlayer : public Application {
public:
    explicit MusicPlayer(const std::string& id);

private:
    void onLaunch(const Request& request) override;
    void onControl(const std::string& action, const std::string& argument) override;
    void fill(int16_t* samples, std::size_t count);

    std::size_t mPosition = 0;  // in the tune
    Player mPlayer;
};

}  // namespace sim

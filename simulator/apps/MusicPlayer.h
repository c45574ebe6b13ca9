// SPDX-License-Identifier: Apache-2.0
// Plays a tune on the loudspeaker from its launch until it is closed, as a sound of the role "music", and records when
// it plays (playing, paused) and how loud the loudspeaker is (volume: percent). Orders: play, pause.
#pragma once

#include "lib/Application.h"
#include "lib/Player.h"

namespace sim {

class MusicPlayer : public Application {
public:
    explicit MusicPlayer(const std::string& id);

private:
    void onLaunch(const Request& request) override;
    void onOrder(const std::string& order, const std::string& argument) override;
    void fill(int16_t* samples, std::size_t count);

    std::size_t mPosition = 0;  // in the tune
    Player mPlayer;
};

}  // namespace sim

// SPDX-License-Identifier: Apache-2.0
// Plays an endless sound on the default loudspeaker and observes the volume of that loudspeaker. Everything runs on the
// thread of the default main context. When the sound server ends, the player waits for it to return and plays on.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "pulse/Context.h"
#include "pulse/GlibMainloop.h"
#include "pulse/Operation.h"
#include "pulse/PlaybackStream.h"

namespace sim {

class Player {
public:
    struct Owner {
        std::string application;
        std::string role;                                                // media role, such as "music"
        std::function<void(int16_t* samples, std::size_t count)> sound;  // fills in the next samples, kRate mono
        std::function<void(bool plays)> playing;                         // the server plays or has paused the stream
        std::function<void(int percent)> volume;                         // of the loudspeaker, initially and at changes
    };
    static constexpr unsigned kRate = 16000;

    // The object must live until the process ends.
    explicit Player(Owner owner);
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    void play() { setPlaying(true); }
    void pause() { setPlaying(false); }

private:
    void connect();
    void onState(pulse::Context::State state);
    void setPlaying(bool plays);
    void openStream();
    void pauseOrResume();
    void readVolume();

    Owner mOwner;
    bool mPlays = false;
    bool mReady = false;
    int mVolume = -1;
    pulse::GlibMainloop mLoop;
    std::optional<pulse::Context> mContext;
    std::optional<pulse::PlaybackStream> mStream;
    pulse::Operation mPauseRequest;
    pulse::Operation mVolumeRequest;
};

}  // namespace sim

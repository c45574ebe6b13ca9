// SPDX-License-Identifier: Apache-2.0
// An acoustic room with a loudspeaker and a microphone that hears it: a private PulseAudio without a sound card. Its
// files are in a separate directory in /tmp. The machine's own sound server is not used.
#pragma once

#include <signal.h>

#include <optional>
#include <string>
#include <vector>

#include "room/Child.h"

class SoundRoom {
public:
    // Starts the room and sets PULSE_SERVER and similar variables, and XDG_CONFIG_HOME if it is unset, so that this
    // process and its later children use it. Loudspeaker and microphone are the server's defaults, "room" and "mic",
    // with this number of channels. Throws std::runtime_error.
    explicit SoundRoom(int channels = 1);
    ~SoundRoom();
    SoundRoom(const SoundRoom&) = delete;
    SoundRoom& operator=(const SoundRoom&) = delete;

    // stop() and kill() end the server by SIGTERM and SIGKILL. start() returns when the room is usable.
    void stop();
    void kill();
    void start();
    // Returns when the server has stopped.
    void freeze() { mServer->freeze(); }
    void thaw() { mServer->signal(SIGCONT); }

    const std::string& folder() const { return mFolder; }
    // Runs pactl with these words in the room. Throws std::runtime_error when it fails.
    void control(const std::vector<std::string>& words) const;

private:
    bool answers() const;

    std::string mFolder;
    int mChannels;
    std::optional<Child> mServer;
};

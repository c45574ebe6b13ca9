// SPDX-License-Identifier: Apache-2.0
// A room with a loudspeaker and a microphone that hears it, made of a private PulseAudio without a sound card. Its
// files are in a folder of its own under /tmp; nothing of the person's sound server is touched.
#pragma once

#include <signal.h>

#include <optional>
#include <string>
#include <vector>

#include "room/Child.h"

class SoundRoom {
public:
    // Points this process and its later children to the room (PULSE_SERVER and its like) and starts it. `channels` is
    // that of loudspeaker and microphone, both the server's defaults, called "room" and "mic". Throws
    // std::runtime_error.
    explicit SoundRoom(int channels = 1);
    ~SoundRoom();
    SoundRoom(const SoundRoom&) = delete;
    SoundRoom& operator=(const SoundRoom&) = delete;

    // The server's end, politely or not, and its start. start() returns when the room can be used.
    void stop();
    void kill();
    void start();
    void freeze() { mServer->signal(SIGSTOP); }
    void thaw() { mServer->signal(SIGCONT); }

    const std::string& folder() const { return mFolder; }
    // Runs pactl with these words in the room; throws when it fails.
    void control(const std::vector<std::string>& words) const;

private:
    bool answers() const;

    std::string mFolder;
    int mChannels;
    std::optional<Child> mServer;
};

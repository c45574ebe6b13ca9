// SPDX-License-Identifier: Apache-2.0
// An acoustic room without a sound card: a private sound server whose microphone hears what is played in the room. The
// microphone does not hear the appliance's own loudspeaker, as with a perfect echo canceller.
#pragma once

#include <memory>
#include <string>

#include "appliance/environment/Folder.h"
#include "appliance/processes/Process.h"

namespace sim {

class Room {
public:
    // With `microphone`, the address of another sound server, the room uses that server's default source as its
    // microphone, and the appliance plays there too. Throws std::runtime_error when that server does not answer.
    Room(const Folder& folder, const std::string& microphone);

    // Starts to play a WAV file. Throws std::runtime_error.
    std::unique_ptr<Process> play(const std::string& wav) const;
    // Whether an application records the microphone.
    bool isRecorded();
    // Whether the sound server runs.
    bool runs() const { return mServer->runs(); }
    pid_t process() const { return mServer->id(); }
    // Kills the sound server and starts it again.
    void restart();

private:
    void requireMicrophone(const std::string& server) const;
    void start();

    const Folder& mFolder;
    std::string mSocket;
    std::string mScript;
    std::unique_ptr<Process> mServer;
};

}  // namespace sim

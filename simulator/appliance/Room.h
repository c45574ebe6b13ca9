// SPDX-License-Identifier: Apache-2.0
// A room without a sound card: what is played into it is what its microphone hears. What the appliance itself plays
// does not come back through the microphone, as if an echo canceller were perfect.
#pragma once

#include <memory>
#include <string>

#include "appliance/Folder.h"
#include "appliance/Process.h"

namespace sim {

class Room {
public:
    // `microphone`: address of another sound server whose default source is the microphone; empty: the room's own
    // sound. With one, the appliance plays on that server too. Throws std::runtime_error when nobody
    // answers there.
    Room(const Folder& folder, const std::string& microphone);

    // A WAV file, which ends at the latest with the process that plays it. Throws std::runtime_error.
    std::unique_ptr<Process> play(const std::string& wav) const;
    // Someone records from the microphone.
    bool isHeard();
    // The sound server does.
    bool runs() const { return mServer->runs(); }
    // The sound server dies and comes back.
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

// A room without a sound card: what is played into it is what its microphone hears.
#pragma once

#include <memory>
#include <string>

#include "appliance/Folder.h"
#include "appliance/Process.h"

namespace sim {

class Room {
public:
    // `microphone`: address of another sound server whose default source is the microphone; empty: the room's own
    // sound.
    Room(const Folder& folder, const std::string& microphone);

    // A WAV file, played to its end. Throws std::runtime_error.
    void play(const std::string& wav);
    // Someone records from the microphone.
    bool isHeard();

private:
    const Folder& mFolder;
    std::unique_ptr<Process> mServer;
};

}  // namespace sim

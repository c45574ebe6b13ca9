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
    // sound. With one, the appliance plays on that server too.
    Room(const Folder& folder, const std::string& microphone);

    // A WAV file, played to its end. Throws std::runtime_error.
    void play(const std::string& wav);
    // The same, but returns at once; the sound ends with its process.
    std::unique_ptr<Process> startPlaying(const std::string& wav) const;
    // Someone records from the microphone.
    bool isHeard();
    // The sound server does.
    bool runs() const { return mServer->runs(); }
    // The sound server dies and comes back.
    void restart();

private:
    void start();

    const Folder& mFolder;
    std::string mSocket;
    std::string mScript;
    std::unique_ptr<Process> mServer;
};

}  // namespace sim

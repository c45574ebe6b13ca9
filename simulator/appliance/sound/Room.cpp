// SPDX-License-Identifier: Apache-2.0
#include "appliance/sound/Room.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "appliance/processes/Until.h"

namespace sim {

namespace {

const std::string kMonitor = ".monitor";

std::string script(const std::string& socket, const std::string& server) {
    // Without rewinds the sink renders 50 ms ahead. With them it renders 2 s ahead, and the microphone hears the first
    // words that much later.
    std::string lines =
        "load-module module-null-sink sink_name=room rate=16000 channels=1 norewinds=1\n"
        "load-module module-null-sink sink_name=loudspeaker\nset-default-sink loudspeaker\n";
    if (server.empty()) {
        lines += "load-module module-remap-source master=room.monitor source_name=mic\n";
    } else {
        lines += "load-module module-tunnel-source source_name=mic server=" + server +
                 "\n.nofail\nload-module module-tunnel-sink sink_name=own server=" + server +
                 "\nset-default-sink own\n.fail\n";
    }
    return lines + "set-default-source mic\nload-module module-native-protocol-unix auth-anonymous=1 socket=" + socket +
           "\n";
}

// Not counting the monitor sources of the loudspeakers.
bool hasMicrophone(const std::string& list) {
    std::ifstream file(list);
    for (std::string number, name, rest; file >> number >> name && std::getline(file, rest);) {
        if (name.size() < kMonitor.size() || name.substr(name.size() - kMonitor.size()) != kMonitor) {
            return true;
        }
    }
    return false;
}

}  // namespace

Room::Room(const Folder& folder, const std::string& microphone)
    : mFolder(folder),
      mSocket(folder / "pulse.socket"),
      mScript(folder.write("pulse.pa", script(mSocket, microphone))) {
    if (!microphone.empty()) {
        requireMicrophone(microphone);
    }
    start();
}

// Without that server, the room's own sound server still starts, but its microphone stays silent.
void Room::requireMicrophone(const std::string& server) const {
    const std::string list = mFolder / "sources";
    Process pactl({"timeout", "5", "pactl", "--server=" + server, "list", "short", "sources"}, list);
    if (pactl.wait() != 0) {
        throw std::runtime_error(
            "no sound server answers at " + server +
            "; start PulseAudio or PipeWire, or set PULSE_SERVER to the address of a server that runs");
    }
    if (!hasMicrophone(list)) {
        throw std::runtime_error("the sound server at " + server + " has no microphone");
    }
}

void Room::restart() {
    mServer->kill();
    std::filesystem::remove(mSocket);
    start();
}

void Room::start() {
    mServer =
        std::make_unique<Process>(std::vector<std::string>{"pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no",
                                                           "--exit-idle-time=-1", "-F", mScript},
                                  mFolder / "pulse.log");
    until("the sound server has a socket", [this] {
        if (!mServer->runs()) {
            throw std::runtime_error("the sound server ended during its start");
        }
        return std::filesystem::exists(mSocket);
    });
}

// The role keeps the service from counting the voice as media. The latency avoids gaps on a busy machine.
std::unique_ptr<Process> Room::play(const std::string& wav) const {
    const std::vector<std::string> words{"paplay", "--latency-msec=200", "--property=media.role=phone", "--device=room",
                                         wav};
    return std::make_unique<Process>(words, mFolder / "pulse.log");
}

bool Room::isRecorded() {
    const std::string list = mFolder / "listeners";
    std::filesystem::remove(list);
    Process({"pactl", "list", "short", "source-outputs"}, list).wait();
    // The server's own streams between devices have no client.
    std::ifstream file(list);
    for (std::string number, source, client, rest; file >> number >> source >> client && std::getline(file, rest);) {
        if (client != "-") {
            return true;
        }
    }
    return false;
}

}  // namespace sim

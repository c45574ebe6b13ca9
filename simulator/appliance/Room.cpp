// SPDX-License-Identifier: Apache-2.0
#include "appliance/Room.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace sim {

namespace {

const std::string kMonitor = ".monitor";

constexpr useconds_t kPollMicroseconds = 5000;
constexpr int kPolls = 2000;

std::string script(const std::string& socket, const std::string& person) {
    // Without rewinds the sink works 50 ms ahead; with them 2 s, in which the first words would be heard that much
    // later.
    std::string lines =
        "load-module module-null-sink sink_name=room rate=16000 channels=1 norewinds=1\n"
        "load-module module-null-sink sink_name=loudspeaker\nset-default-sink loudspeaker\n";
    if (person.empty()) {
        lines += "load-module module-remap-source master=room.monitor source_name=mic\n";
    } else {
        lines += "load-module module-tunnel-source source_name=mic server=" + person +
                 "\n.nofail\nload-module module-tunnel-sink sink_name=persons server=" + person +
                 "\nset-default-sink persons\n.fail\n";
    }
    return lines + "set-default-source mic\nload-module module-native-protocol-unix auth-anonymous=1 socket=" + socket +
           "\n";
}

// Every loudspeaker has a source too: what it plays.
bool namesMicrophone(const std::string& list) {
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

// The room's sound server would start without it, and nobody would ever be heard.
void Room::requireMicrophone(const std::string& server) const {
    const std::string list = mFolder / "persons-sources";
    Process asking({"timeout", "5", "pactl", "--server=" + server, "list", "short", "sources"}, list);
    if (asking.wait() != 0) {
        throw std::runtime_error("no sound server answers at " + server +
                                 "; start PulseAudio or PipeWire, or name one that runs in PULSE_SERVER");
    }
    if (!namesMicrophone(list)) {
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
    for (int polls = 0; !std::filesystem::exists(mSocket); ++polls) {
        if (!mServer->runs() || polls > kPolls) {
            throw std::runtime_error("the sound server does not start");
        }
        usleep(kPollMicroseconds);
    }
}

// A voice, which is no media that the appliance plays. Enough of it in advance that a busy machine does not tear it.
std::unique_ptr<Process> Room::play(const std::string& wav) const {
    const std::vector<std::string> words{"paplay", "--latency-msec=200", "--property=media.role=phone", "--device=room",
                                         wav};
    return std::make_unique<Process>(words, mFolder / "pulse.log");
}

bool Room::isHeard() {
    const std::string list = mFolder / "listeners";
    std::filesystem::remove(list);
    Process({"pactl", "list", "short", "source-outputs"}, list).wait();
    const auto lines = std::filesystem::file_size(list);
    return lines > 0;
}

}  // namespace sim

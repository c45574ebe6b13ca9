#include "appliance/Room.h"

#include <unistd.h>

#include <filesystem>
#include <stdexcept>

namespace sim {

Room::Room(const Folder& folder, const std::string& microphone) : mFolder(folder) {
    const std::string socket = folder / "pulse.socket";
    const std::string source = microphone.empty()
                                   ? "load-module module-remap-source master=room.monitor source_name=mic\n"
                                   : "load-module module-tunnel-source source_name=mic server=" + microphone + "\n";
    const std::string script =
        folder.write("pulse.pa", "load-module module-null-sink sink_name=room rate=16000 channels=1\n" + source +
                                     "set-default-sink room\nset-default-source mic\n"
                                     "load-module module-native-protocol-unix auth-anonymous=1 socket=" +
                                     socket + "\n");
    mServer =
        std::make_unique<Process>(std::vector<std::string>{"pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no",
                                                           "--exit-idle-time=-1", "-F", script},
                                  folder / "pulse.log");
    for (int polls = 0; !std::filesystem::exists(socket); ++polls) {
        if (!mServer->runs() || polls > 2000) {
            throw std::runtime_error("the sound server does not start");
        }
        usleep(5000);
    }
}

void Room::play(const std::string& wav) {
    Process player({"paplay", "--latency-msec=20", "--device=room", wav}, mFolder / "pulse.log");
    if (player.wait() != 0) {
        throw std::runtime_error("cannot play " + wav);
    }
}

bool Room::isHeard() {
    const std::string list = mFolder / "listeners";
    std::filesystem::remove(list);
    Process({"pactl", "list", "short", "source-outputs"}, list).wait();
    const auto lines = std::filesystem::file_size(list);
    return lines > 0;
}

}  // namespace sim

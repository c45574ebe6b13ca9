// SPDX-License-Identifier: Apache-2.0
#include "room/SoundRoom.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <thread>

namespace {

std::string makeFolder() {
    char name[] = "/tmp/orvane-sound-XXXXXX";
    if (!mkdtemp(name)) {
        throw std::runtime_error("cannot create a directory for the sound room");
    }
    return name;
}

}  // namespace

SoundRoom::SoundRoom(int channels) : mFolder(makeFolder()), mChannels(channels) {
    setenv("PULSE_SERVER", ("unix:" + mFolder + "/native").c_str(), 1);
    setenv("PULSE_COOKIE", (mFolder + "/cookie").c_str(), 1);
    setenv("PULSE_RUNTIME_PATH", mFolder.c_str(), 1);
    setenv("PULSE_STATE_PATH", mFolder.c_str(), 1);
    // This user's own settings may have turned the microphone off.
    setenv("XDG_CONFIG_HOME", mFolder.c_str(), 0);
    start();
}

SoundRoom::~SoundRoom() {
    stop();
    std::error_code ignored;
    std::filesystem::remove_all(mFolder, ignored);
}

void SoundRoom::stop() {
    mServer.reset();
}

void SoundRoom::kill() {
    if (mServer) {
        mServer->kill();
    }
    mServer.reset();
}

void SoundRoom::start() {
    const std::string shape = " rate=16000 channels=" + std::to_string(mChannels);
    ::unlink((mFolder + "/native").c_str());
    // Without rewinds the loudspeaker never plays more than 50 ms ahead of what the microphone hears. The socket comes
    // last, so that a client that reaches it finds the complete room.
    mServer.emplace(
        std::vector<std::string>{"pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
                                 "--realtime=no", "--high-priority=no", "--log-target=file:" + mFolder + "/log",
                                 "--load=module-stream-restore",
                                 "--load=module-null-sink norewinds=1 sink_name=room" + shape,
                                 "--load=module-remap-source master=room.monitor source_name=mic",
                                 "--load=module-native-protocol-unix auth-anonymous=1 socket=" + mFolder + "/native"},
        std::vector<std::string>{"HOME=" + mFolder, "XDG_RUNTIME_DIR=" + mFolder, "XDG_CONFIG_HOME=" + mFolder});
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!answers()) {
        if (!mServer->running() || std::chrono::steady_clock::now() > limit) {
            throw std::runtime_error("the sound room does not start");
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    control({"set-default-sink", "room"});
    control({"set-default-source", "mic"});
}

bool SoundRoom::answers() const {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    (mFolder + "/native").copy(address.sun_path, sizeof address.sun_path - 1);
    const int connection = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool reached = connect(connection, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    close(connection);
    return reached;
}

void SoundRoom::control(const std::vector<std::string>& words) const {
    std::vector<std::string> command{"pactl"};
    command.insert(command.end(), words.begin(), words.end());
    if (Child(command).wait() != 0) {
        throw std::runtime_error("pactl " + words[0] + " fails in the sound room");
    }
}

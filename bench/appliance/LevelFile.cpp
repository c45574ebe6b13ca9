// How regularly the level file is written while the user speaks.
#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <fstream>

#include "appliance/Measures.h"
#include "appliance/Ready.h"

namespace bench {

namespace {

constexpr char kLevelFile[] = "/tmp/OrvaneVolume.tmp";
constexpr int kRate = 16000;
constexpr int kBlock = 256;  // samples, what the level is of
constexpr double kSeconds = 6;

class Watch {
public:
    Watch() : mHandle(inotify_init1(IN_CLOEXEC)) {
        if (inotify_add_watch(mHandle, kLevelFile, IN_CLOSE_WRITE) < 0) {
            throw std::runtime_error(std::string("cannot watch ") + kLevelFile);
        }
    }
    ~Watch() { close(mHandle); }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    // Waits for a write, until `end`; its time, or 0.
    double next(double end) {
        pollfd ready{mHandle, POLLIN, 0};
        const double left = end - sim::monotonicNow();
        if (left <= 0 || poll(&ready, 1, static_cast<int>(left * 1000)) != 1) {
            return 0;
        }
        const double now = sim::monotonicNow();
        alignas(inotify_event) char events[4096];
        return read(mHandle, events, sizeof events) > 0 ? now : 0;
    }

private:
    int mHandle;
};

void put(std::ofstream& file, unsigned value, int bytes) {
    for (; bytes > 0; --bytes, value >>= 8) {
        file.put(static_cast<char>(value & 0xff));
    }
}

// A tone whose level moves by 3 dB a block, so that no two looks at it see the same.
std::string writeStairs(const sim::Folder& folder) {
    const std::string path = folder / "stairs.wav";
    std::ofstream file(path, std::ios::binary);
    const auto samples = static_cast<unsigned>(kSeconds * kRate);
    file << "RIFF";
    put(file, 36 + 2 * samples, 4);
    file << "WAVEfmt ";
    put(file, 16, 4);
    put(file, 1, 2);
    put(file, 1, 2);
    put(file, kRate, 4);
    put(file, 2 * kRate, 4);
    put(file, 2, 2);
    put(file, 16, 2);
    file << "data";
    put(file, 2 * samples, 4);
    for (unsigned i = 0; i < samples; ++i) {
        const int amplitude = 20000 >> (i / kBlock % 8);
        put(file, static_cast<unsigned>(i / 16 % 2 == 0 ? amplitude : -amplitude), 2);
    }
    return path;
}

}  // namespace

void measureLevelFile(sim::Appliance& appliance, Figures& figures) {
    const std::string wav = writeStairs(appliance.folder());
    startReadyService(appliance);
    appliance.turnPage();
    appliance.launch(sim::kUi);
    appliance.order(sim::kUi, "start", "PTT");
    appliance.awaitState("Recording");
    Watch watch;
    const sim::Process player({"paplay", "--device=room", wav}, appliance.folder() / "player.log");
    const double end = sim::monotonicNow() + kSeconds;
    double last = watch.next(end);
    for (double now = watch.next(end); now > 0; now = watch.next(end)) {
        figures.add("level file period ms", 1000 * (now - last));
        last = now;
    }
    appliance.order(sim::kUi, "cancel");
    appliance.awaitState("StandBy");
    appliance.stopService();
}

}  // namespace bench

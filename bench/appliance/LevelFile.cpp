// SPDX-License-Identifier: Apache-2.0
// The periods between writes of the level file while the level of a tone changes with every block.
#include <appliance/sound/Speech.h>
#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include "appliance/Measures.h"

namespace bench {

namespace {

constexpr char kLevelFile[] = "/tmp/OrvaneVolume.tmp";
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

    // Waits until `end` for a write. Returns the time of the write, or 0 if there is none.
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

}  // namespace

void measureLevelFile(sim::Appliance& appliance, Figures& figures) {
    const std::string wav = sim::stairs(appliance.folder(), kSeconds);
    appliance.service().start();
    appliance.service().awaitRecognizer();
    appliance.turnPage();
    appliance.launch(sim::kUi);
    appliance.control(sim::kUi, "start", "PTT");
    appliance.awaitState("Recording");
    Watch watch;
    const sim::Process player({"paplay", "--device=room", wav}, appliance.folder() / "player.log");
    const double end = sim::monotonicNow() + kSeconds;
    double last = watch.next(end);
    for (double now = watch.next(end); now > 0; now = watch.next(end)) {
        figures.add("level file period ms", 1000 * (now - last));
        last = now;
    }
    appliance.control(sim::kUi, "cancel");
    appliance.awaitState("StandBy");
    appliance.service().stop();
}

}  // namespace bench

// SPDX-License-Identifier: Apache-2.0
// What the user waits for: from the engine's call until the UI has its launch request, and from the UI's start request
// until it is told that recording has begun. Both as the UI sees them.
#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <random>

#include "appliance/Measures.h"
#include "appliance/Ready.h"

namespace bench {

namespace {

constexpr int kRounds = 100;
constexpr unsigned kPacingMs = 50;

class Shots {
public:
    explicit Shots(const std::string& path) {
        mkfifo(path.c_str(), 0600);
        mPipe = open(path.c_str(), O_RDWR | O_CLOEXEC);
        setenv("BENCH_ENGINE_SHOTS", path.c_str(), 1);
    }
    ~Shots() {
        unsetenv("BENCH_ENGINE_SHOTS");
        close(mPipe);
    }
    Shots(const Shots&) = delete;
    Shots& operator=(const Shots&) = delete;

    void fire() const {
        if (write(mPipe, "!", 1) != 1) {
            throw std::runtime_error("the scripted engine cannot be told");
        }
    }

private:
    int mPipe;
};

double timeOf(const sim::Event& event, const char* member = "at") {
    return event.at(member).get<double>();
}

struct Round {
    double toLaunch, toRecording;  // ms
};

Round wakeUpAndCancel(sim::Appliance& appliance, const Shots& shots) {
    appliance.turnPage();
    shots.fire();
    const double called = timeOf(appliance.await("engine", {{"event", "wake-up call"}}), "called");
    const double launched = timeOf(appliance.await(sim::kUi, {{"event", "wake-up"}}));
    const double asked = timeOf(appliance.await(sim::kUi, {{"event", "asked"}}));
    const double recording = timeOf(appliance.awaitState("Recording"));
    appliance.order(sim::kUi, "cancel");
    appliance.awaitState("StandBy");
    return {1000 * (launched - called), 1000 * (recording - asked)};
}

}  // namespace

void measureLatency(sim::Appliance& appliance, Figures& figures) {
    const Shots shots(appliance.folder() / "shots");
    setenv("BENCH_ENGINE_TAKES_AUDIO", "yes", 1);
    appliance.launch(sim::kUi);
    startReadyService(appliance, BENCH_PROGRAM_WITHOUT_ENGINE);
    wakeUpAndCancel(appliance, shots);  // reads in what the first one needs
    std::mt19937 random(1);
    for (int round = 0; round < kRounds; ++round) {
        usleep(random() % (4 * kPacingMs * 1000));  // so that no round keeps step with the service's pacing
        const Round times = wakeUpAndCancel(appliance, shots);
        figures.add("wake-up to launch ms", times.toLaunch);
        figures.add("start to recording ms", times.toRecording);
    }
    appliance.stopService();
}

}  // namespace bench

// SPDX-License-Identifier: Apache-2.0
// The delays that a person notices: from the wake engine's call until the UI receives its launch request, and from the
// UI's start request until it receives Recording.
#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <random>

#include "appliance/Measures.h"

namespace bench {

namespace {

constexpr int kRounds = 100;
constexpr unsigned kPacingMs = 50;

// Triggers wake-word detections in the scripted engine.
class Detections {
public:
    explicit Detections(const std::string& path) {
        mkfifo(path.c_str(), 0600);
        mPipe = open(path.c_str(), O_RDWR | O_CLOEXEC);
        setenv("BENCH_ENGINE_DETECTIONS", path.c_str(), 1);
    }
    ~Detections() {
        unsetenv("BENCH_ENGINE_DETECTIONS");
        close(mPipe);
    }
    Detections(const Detections&) = delete;
    Detections& operator=(const Detections&) = delete;

    void trigger() const {
        if (write(mPipe, "!", 1) != 1) {
            throw std::runtime_error("cannot write to the scripted engine");
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

Round wakeUpAndCancel(sim::Appliance& appliance, const Detections& detections) {
    appliance.turnPage();
    detections.trigger();
    const double called = timeOf(appliance.await("engine", {{"event", "detection"}}), "called");
    const double launched = timeOf(appliance.await(sim::kUi, {{"event", "wake word detected"}}));
    const double requested = timeOf(appliance.await(sim::kUi, {{"event", "sent"}}));
    const double recording = timeOf(appliance.awaitState("Recording"));
    appliance.control(sim::kUi, "cancel");
    appliance.awaitState("StandBy");
    return {1000 * (launched - called), 1000 * (recording - requested)};
}

}  // namespace

void measureLatency(sim::Appliance& appliance, Figures& figures) {
    const Detections detections(appliance.folder() / "detections");
    setenv("BENCH_ENGINE_TAKES_AUDIO", "yes", 1);
    appliance.launch(sim::kUi);
    appliance.service().start(BENCH_PROGRAM_WITHOUT_ENGINE);
    appliance.service().awaitRecognizer();
    wakeUpAndCancel(appliance, detections);  // not counted: the first round loads more
    std::mt19937 random(1);
    for (int round = 0; round < kRounds; ++round) {
        usleep(random() % (4 * kPacingMs * 1000));  // so that the rounds do not coincide with the service's cycles
        const Round times = wakeUpAndCancel(appliance, detections);
        figures.add("wake word to launch ms", times.toLaunch);
        figures.add("start to recording ms", times.toRecording);
    }
    appliance.service().stop();
}

}  // namespace bench

// SPDX-License-Identifier: Apache-2.0
// The processor share of listening, with the wake engine in a silent room and during talk, and without the engine, and
// the resident memory.
#include <appliance/sound/Speech.h>
#include <stdlib.h>
#include <unistd.h>

#include "appliance/Measures.h"
#include "appliance/processes/Usage.h"

namespace bench {

namespace {

constexpr int kWindows = 5;
constexpr double kWindowSeconds = 4;
constexpr char kTalk[] =
    "the train leaves at seven and we still have to pack the bags, so please tell your brother that dinner is on the "
    "table and that the dog has not been out since this morning";

// Percent of one core while `wait` runs.
template <typename Wait>
double share(pid_t process, Wait wait) {
    const double begun = sim::monotonicNow();
    const double used = sim::cpuSeconds(process);
    wait();
    return 100 * (sim::cpuSeconds(process) - used) / (sim::monotonicNow() - begun);
}

void letTimePass() {
    usleep(static_cast<useconds_t>(kWindowSeconds * 1e6));
}

void measureInSilence(sim::Appliance& appliance, Figures& figures, const char* name) {
    letTimePass();  // the work after the start does not count
    for (int window = 0; window < kWindows; ++window) {
        figures.add(name, share(appliance.service().process(), letTimePass));
    }
}

void measureInTalk(sim::Appliance& appliance, Figures& figures) {
    const std::string wav = sim::speak(appliance.folder(), kTalk, "awb");
    for (int window = 0; window < kWindows; ++window) {
        figures.add("listening talk %", share(appliance.service().process(), [&] { appliance.play(wav); }));
    }
}

// The same program with an engine that discards the audio, or does not fetch it.
void measureWithoutEngine(sim::Appliance& appliance, Figures& figures, const char* takes, const char* name) {
    setenv("BENCH_ENGINE_TAKES_AUDIO", takes, 1);
    appliance.service().start(BENCH_PROGRAM_WITHOUT_ENGINE);
    measureInSilence(appliance, figures, name);
    appliance.service().stop();
}

}  // namespace

void measureListening(sim::Appliance& appliance, Figures& figures) {
    appliance.service().start();
    measureInSilence(appliance, figures, "listening silence %");
    appliance.turnPage();
    measureInTalk(appliance, figures);
    figures.add("false detections in talk", appliance.count(sim::kUi, {{"event", "wake word detected"}}));
    figures.add("resident MB", static_cast<double>(sim::usageOf(appliance.service().process()).residentKb) / 1024);
    appliance.service().stop();
    measureWithoutEngine(appliance, figures, "yes", "listening audio discarded %");
    measureWithoutEngine(appliance, figures, "no", "listening without engine %");
}

}  // namespace bench

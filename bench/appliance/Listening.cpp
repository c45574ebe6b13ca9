// SPDX-License-Identifier: Apache-2.0
// What listening costs, in real time: with the wake-up engine in a silent room and while people talk; without it; and
// what is resident after that.
#include <appliance/Speech.h>
#include <stdlib.h>
#include <unistd.h>

#include "appliance/Measures.h"
#include "lib/Usage.h"

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
    const double used = cpuSeconds(process);
    wait();
    return 100 * (cpuSeconds(process) - used) / (sim::monotonicNow() - begun);
}

void letTimePass() {
    usleep(static_cast<useconds_t>(kWindowSeconds * 1e6));
}

void measureInSilence(sim::Appliance& appliance, Figures& figures, const char* name) {
    letTimePass();  // what a start leaves to do
    for (int window = 0; window < kWindows; ++window) {
        figures.add(name, share(appliance.serviceProcess(), letTimePass));
    }
}

void measureInTalk(sim::Appliance& appliance, Figures& figures) {
    const std::string wav = sim::speak(appliance.folder(), kTalk, "awb");
    for (int window = 0; window < kWindows; ++window) {
        figures.add("listening talk %", share(appliance.serviceProcess(), [&] { appliance.play(wav); }));
    }
}

// The same program, whose engine takes the audio and throws it away, or does not even take it.
void measureWithoutEngine(sim::Appliance& appliance, Figures& figures, const char* takes, const char* name) {
    setenv("BENCH_ENGINE_TAKES_AUDIO", takes, 1);
    appliance.startService(BENCH_PROGRAM_WITHOUT_ENGINE);
    measureInSilence(appliance, figures, name);
    appliance.stopService();
}

}  // namespace

void measureListening(sim::Appliance& appliance, Figures& figures) {
    appliance.startService();
    measureInSilence(appliance, figures, "listening silence %");
    appliance.turnPage();
    measureInTalk(appliance, figures);
    figures.add("false wake-ups in talk", appliance.count(sim::kUi, {{"event", "wake-up"}}));
    figures.add("resident MB", static_cast<double>(usageOf(appliance.serviceProcess()).residentKb) / 1024);
    appliance.stopService();
    measureWithoutEngine(appliance, figures, "yes", "listening audio discarded %");
    measureWithoutEngine(appliance, figures, "no", "listening without engine %");
}

}  // namespace bench

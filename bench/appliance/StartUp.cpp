// SPDX-License-Identifier: Apache-2.0
// From the start of the program until it listens for the wake word and records the microphone.
#include <unistd.h>

#include "appliance/Measures.h"

namespace bench {

namespace {

constexpr int kStarts = 7;
constexpr useconds_t kPollMicroseconds = 1000;
constexpr double kWatchdogSeconds = 20;

void awaitListening(const sim::Appliance& appliance) {
    for (const double end = sim::monotonicNow() + kWatchdogSeconds;
         !sim::serviceStatus(appliance.session(), "Listening"); usleep(kPollMicroseconds)) {
        if (sim::monotonicNow() > end) {
            throw std::runtime_error("the service does not listen");
        }
    }
}

}  // namespace

void measureStartUp(sim::Appliance& appliance, Figures& figures) {
    for (int start = 0; start < kStarts; ++start) {
        const double begun = sim::monotonicNow();
        const sim::Process service({BENCH_PROGRAM}, appliance.folder() / "service.log");
        awaitListening(appliance);
        const double listens = sim::monotonicNow();
        // Checked only now, because the check takes as long as the start.
        const bool recorded = appliance.isRecorded();
        sim::until("the microphone is recorded", [&] { return appliance.isRecorded(); });
        figures.add("start-up s", (recorded ? listens : sim::monotonicNow()) - begun);
    }
}

}  // namespace bench

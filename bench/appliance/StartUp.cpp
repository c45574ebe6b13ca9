// SPDX-License-Identifier: Apache-2.0
// From the start of the program until it listens: the trigger has begun and the microphone is being recorded.
#include <unistd.h>

#include "appliance/Measures.h"

namespace bench {

namespace {

constexpr int kStarts = 7;
constexpr useconds_t kPollMicroseconds = 1000;
constexpr double kWatchdogSeconds = 20;
// The last that the service does when it starts.
constexpr char kListens[] = "__startListening";

void awaitLine(sim::Appliance& appliance, std::size_t from) {
    for (const double end = sim::monotonicNow() + kWatchdogSeconds;
         appliance.serviceLog().find(kListens, from) == std::string::npos; usleep(kPollMicroseconds)) {
        if (sim::monotonicNow() > end) {
            throw std::runtime_error("the service never listened");
        }
    }
}

}  // namespace

void measureStartUp(sim::Appliance& appliance, Figures& figures) {
    for (int start = 0; start < kStarts; ++start) {
        const std::size_t logged = appliance.serviceLog().size();
        const double begun = sim::monotonicNow();
        const sim::Process service({BENCH_PROGRAM}, appliance.folder() / "service.log");
        awaitLine(appliance, logged);
        const double listens = sim::monotonicNow();
        // Asked only now: the question costs as much as the answer is worth.
        const bool recorded = appliance.isHeard();
        appliance.until("the microphone is recorded", [&] { return appliance.isHeard(); });
        figures.add("start-up s", (recorded ? listens : sim::monotonicNow()) - begun);
    }
}

}  // namespace bench

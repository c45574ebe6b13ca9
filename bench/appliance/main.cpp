// SPDX-License-Identifier: Apache-2.0
// bench_appliance FILE [NAME...]: measures the real program on a simulated appliance.
#include "appliance/Measures.h"
#include "runner/Run.h"

int main(int count, char** words) {
    return bench::runMeasures(count, words,
                              {{"start-up", bench::measureStartUp},
                               {"listening", bench::measureListening},
                               {"latency", bench::measureLatency},
                               {"level-file", bench::measureLevelFile},
                               {"profile", bench::measureProfile}});
}

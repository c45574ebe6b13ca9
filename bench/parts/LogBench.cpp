// SPDX-License-Identifier: Apache-2.0
// What one log line costs, beside the same two writes done by hand. Both outputs go to a file that keeps nothing, so
// that the numbers are the program's own.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "Util/Log.h"

namespace {

// Standard output and standard error lead nowhere while it lives.
class Silence {
public:
    Silence() : mOutput(dup(STDOUT_FILENO)), mError(dup(STDERR_FILENO)) {
        fflush(stdout);
        const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
        close(nowhere);
    }
    ~Silence() {
        fflush(stdout);
        dup2(mOutput, STDOUT_FILENO);
        dup2(mError, STDERR_FILENO);
        close(mOutput);
        close(mError);
    }

private:
    int mOutput;
    int mError;
};

void OneLogLine(benchmark::State& state) {
    const Silence silence;
    int number = 0;
    for (auto _ : state) {
        LOGD("value %d of %s", ++number, "something");
    }
}
BENCHMARK(OneLogLine);

void TheSameTwoWritesByHand(benchmark::State& state) {
    const Silence silence;
    int number = 0;
    for (auto _ : state) {
        ++number;
        dprintf(STDERR_FILENO, "D/orvane-da-service \033[32m[%d] LogBench.cpp: hand(1) > value %d of %s\033[0m\n",
                static_cast<int>(syscall(SYS_gettid)), number, "something");
        printf("[hand:1] value %d of %s\n", number, "something");
    }
}
BENCHMARK(TheSameTwoWritesByHand);

}  // namespace

// SPDX-License-Identifier: Apache-2.0
// The cost of one log line, and of the same two writes without the log. Both outputs go to /dev/null, so that the
// figures contain no other program.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "Util/Log.h"

namespace {

// Redirects standard output and standard error to /dev/null during its lifetime.
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

void TheSameTwoWritesWithoutTheLog(benchmark::State& state) {
    const Silence silence;
    int number = 0;
    for (auto _ : state) {
        ++number;
        dprintf(STDERR_FILENO, "D/orvane-da-service \033[32m[%d] LogBench.cpp: hand(1) > value %d of %s\033[0m\n",
                static_cast<int>(syscall(SYS_gettid)), number, "something");
        printf("[hand:1] value %d of %s\n", number, "something");
    }
}
BENCHMARK(TheSameTwoWritesWithoutTheLog);

}  // namespace

// SPDX-License-Identifier: Apache-2.0
// The resources of another process. All functions throw std::runtime_error when the process does not exist.
#pragma once

#include <sys/types.h>

namespace sim {

struct Usage {
    long residentKb = 0;
    int files = 0;
    int threads = 0;
};

Usage usageOf(pid_t process);
// Processor time of all its threads, including ended ones, in seconds.
double cpuSeconds(pid_t process);

}  // namespace sim

// SPDX-License-Identifier: Apache-2.0
// What another process uses and holds. All throw std::runtime_error when there is no such process.
#pragma once

#include <sys/types.h>

namespace bench {

struct Usage {
    long residentKb = 0;
    int files = 0;
    int threads = 0;
};

Usage usageOf(pid_t process);
// Processor time of all its threads, those that have ended too, in seconds.
double cpuSeconds(pid_t process);

}  // namespace bench

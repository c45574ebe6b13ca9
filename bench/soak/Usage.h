// What a process holds: memory, files, threads.
#pragma once

#include <sys/types.h>

#include <vector>

namespace soak {

struct Usage {
    long rssKb = 0;
    int files = 0;
    int threads = 0;
};

// Throws std::runtime_error when there is no such process.
Usage usageOf(pid_t process);

// How much larger the mean of the last quarter of the run is than that of the third, as a share of it; 0 of fewer
// than four samples.
double growth(const std::vector<Usage>& samples);

}  // namespace soak

// What another process uses.
#pragma once

#include <sys/types.h>

namespace bench {

// Processor time of all its threads, those that have ended too, in seconds. Throws std::runtime_error.
double cpuSeconds(pid_t process);
// Throws std::runtime_error.
double residentMegabytes(pid_t process);

}  // namespace bench

#include "appliance/Usage.h"

#include <time.h>

#include <fstream>
#include <stdexcept>
#include <string>

namespace bench {

double cpuSeconds(pid_t process) {
    clockid_t clock{};
    timespec time{};
    if (clock_getcpuclockid(process, &clock) != 0 || clock_gettime(clock, &time) != 0) {
        throw std::runtime_error("no processor time of process " + std::to_string(process));
    }
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double residentMegabytes(pid_t process) {
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("VmRSS:", 0) == 0) {
            return std::stod(line.substr(6)) / 1024;  // the line is in kB
        }
    }
    throw std::runtime_error("no resident memory of process " + std::to_string(process));
}

}  // namespace bench

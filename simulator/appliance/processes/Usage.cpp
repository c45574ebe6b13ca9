// SPDX-License-Identifier: Apache-2.0
#include "appliance/processes/Usage.h"

#include <time.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace sim {

Usage usageOf(pid_t process) {
    const std::filesystem::path folder = "/proc/" + std::to_string(process);
    Usage usage;
    std::ifstream status(folder / "status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("VmRSS:", 0) == 0) {
            usage.residentKb = std::stol(line.substr(6));
        } else if (line.rfind("Threads:", 0) == 0) {
            usage.threads = std::stoi(line.substr(8));
        }
    }
    if (usage.residentKb == 0) {
        throw std::runtime_error("there is no process " + std::to_string(process));
    }
    usage.files = static_cast<int>(std::distance(std::filesystem::directory_iterator(folder / "fd"), {}));
    return usage;
}

double cpuSeconds(pid_t process) {
    clockid_t clock{};
    timespec time{};
    if (clock_getcpuclockid(process, &clock) != 0 || clock_gettime(clock, &time) != 0) {
        throw std::runtime_error("cannot read the processor time of process " + std::to_string(process));
    }
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

}  // namespace sim

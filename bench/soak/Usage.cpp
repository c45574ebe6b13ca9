#include "Usage.h"

#include <filesystem>
#include <fstream>
#include <numeric>
#include <stdexcept>
#include <string>

namespace soak {

namespace {

double mean(const std::vector<Usage>& samples, std::size_t first, std::size_t end) {
    double sum = 0;
    for (std::size_t i = first; i < end; ++i) {
        sum += static_cast<double>(samples[i].rssKb);
    }
    return sum / static_cast<double>(end - first);
}

}  // namespace

Usage usageOf(pid_t process) {
    const std::filesystem::path folder = "/proc/" + std::to_string(process);
    Usage usage;
    std::ifstream status(folder / "status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("VmRSS:", 0) == 0) {
            usage.rssKb = std::stol(line.substr(6));
        } else if (line.rfind("Threads:", 0) == 0) {
            usage.threads = std::stoi(line.substr(8));
        }
    }
    if (usage.rssKb == 0) {
        throw std::runtime_error("there is no process " + std::to_string(process));
    }
    usage.files = static_cast<int>(std::distance(std::filesystem::directory_iterator(folder / "fd"), {}));
    return usage;
}

double growth(const std::vector<Usage>& samples) {
    if (samples.size() < 4) {
        return 0;
    }
    const std::size_t half = samples.size() / 2;
    const std::size_t last = samples.size() * 3 / 4;
    const double before = mean(samples, half, last);
    return (mean(samples, last, samples.size()) - before) / before;
}

}  // namespace soak

// SPDX-License-Identifier: Apache-2.0
#include "report/Samples.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace bench {

void readSamples(const std::string& path, Samples& samples) {
    std::ifstream file(path);
    if (!file) {
        throw std::runtime_error("cannot read " + path);
    }
    const auto content = nlohmann::json::parse(file);
    if (!content.contains("benchmarks")) {
        for (const auto& [name, values] : content.items()) {
            samples[name] = values.get<std::vector<double>>();
        }
        return;
    }
    for (const auto& run : content.at("benchmarks")) {
        if (run.at("run_type") == "iteration") {
            samples[run.at("name")].push_back(run.at("cpu_time"));
        }
    }
}

double quantile(std::vector<double> samples, double share) {
    std::sort(samples.begin(), samples.end());
    const double place = std::ceil(share * static_cast<double>(samples.size())) - 1;
    return samples.at(static_cast<std::size_t>(std::max(0.0, place)));
}

}  // namespace bench

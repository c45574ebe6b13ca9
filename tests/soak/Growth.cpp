// SPDX-License-Identifier: Apache-2.0
#include "Growth.h"

namespace soak {

namespace {

double mean(const std::vector<sim::Usage>& samples, std::size_t first, std::size_t end) {
    double sum = 0;
    for (std::size_t i = first; i < end; ++i) {
        sum += static_cast<double>(samples[i].residentKb);
    }
    return sum / static_cast<double>(end - first);
}

}  // namespace

double growth(const std::vector<sim::Usage>& samples) {
    if (samples.size() < 4) {
        return 0;
    }
    const std::size_t half = samples.size() / 2;
    const std::size_t last = samples.size() * 3 / 4;
    const double before = mean(samples, half, last);
    return (mean(samples, last, samples.size()) - before) / before;
}

}  // namespace soak

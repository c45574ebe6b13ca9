// SPDX-License-Identifier: Apache-2.0
// The samples of one run by the name of their measurement.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace bench {

using Samples = std::map<std::string, std::vector<double>>;

// Adds the samples of a file that Figures wrote, or Google Benchmark with repetitions (processor time in ns). Throws
// std::exception.
void readSamples(const std::string& path, Samples& samples);

// The value that this share of the samples does not exceed. `samples` must not be empty.
double quantile(std::vector<double> samples, double share);

}  // namespace bench

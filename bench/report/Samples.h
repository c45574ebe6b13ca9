// SPDX-License-Identifier: Apache-2.0
// All samples of one run, by the name of what they measure.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace bench {

using Samples = std::map<std::string, std::vector<double>>;

// Adds a file's: one of ours, or Google Benchmark's with repetitions (processor time in ns). Throws std::exception.
void readSamples(const std::string& path, Samples& samples);

// `share` of the samples are not above it; they must not be empty.
double quantile(std::vector<double> samples, double share);

}  // namespace bench

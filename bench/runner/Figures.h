// SPDX-License-Identifier: Apache-2.0
// The samples of each measurement, in a file for the report.
#pragma once

#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace bench {

class Figures {
public:
    void add(const std::string& name, double sample) { mSamples[name].push_back(sample); }
    // Throws std::runtime_error.
    void write(std::ostream& file) const;

private:
    std::map<std::string, std::vector<double>> mSamples;
};

}  // namespace bench

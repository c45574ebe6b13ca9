// SPDX-License-Identifier: Apache-2.0
// The rows of the report, in order, and the upper limit of each figure.
#pragma once

#include <string>
#include <vector>

#include "report/Samples.h"

namespace bench {

enum class Shown { Median, P95, Spread };  // Spread: from the 5th to the 95th percentile

struct Row {
    const char* title;
    const char* samples;
    const char* unit;
    Shown shown = Shown::Median;
    double aim = 0;                 // the upper limit; 0: none
    const char* floor = nullptr;    // samples; if set, the aim is a multiple of their median
    const char* without = nullptr;  // samples; if set, their median is subtracted from the figure
};

const std::vector<Row>& rows();

bool isMeasured(const Row& row, const Samples& samples);
// Only for a measured row:
double valueOf(const Row& row, const Samples& samples);
double aimOf(const Row& row, const Samples& samples);

}  // namespace bench

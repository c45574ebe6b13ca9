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
    double aim = 0;                 // the upper limit; 0 without one
    const char* floor = nullptr;    // with it, the aim is a multiple of this median
    const char* without = nullptr;  // this median is subtracted
};

const std::vector<Row>& rows();

bool isMeasured(const Row& row, const Samples& samples);
// These need a measured row.
double valueOf(const Row& row, const Samples& samples);
double aimOf(const Row& row, const Samples& samples);

}  // namespace bench

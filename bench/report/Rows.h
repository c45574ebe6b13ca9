// SPDX-License-Identifier: Apache-2.0
// What the report shows, in its order, and how high each figure may be.
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
    double aim = 0;                 // the highest that is aimed at; 0: no aim
    const char* floor = nullptr;    // the aim is this many times that median instead
    const char* without = nullptr;  // that median is taken off
};

const std::vector<Row>& rows();

bool isMeasured(const Row& row, const Samples& samples);
// Of a row that has been measured.
double valueOf(const Row& row, const Samples& samples);
double aimOf(const Row& row, const Samples& samples);

}  // namespace bench

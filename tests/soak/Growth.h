// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

#include "appliance/processes/Usage.h"

namespace soak {

// The growth of the mean resident memory from the third to the last quarter of the samples, as a share of the former. 0
// for fewer than four samples.
double growth(const std::vector<sim::Usage>& samples);

}  // namespace soak

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

#include "lib/Usage.h"

namespace soak {

// How much larger the mean of the memory in the last quarter of the run is than that in the third, as a share of it; 0
// of fewer than four samples.
double growth(const std::vector<bench::Usage>& samples);

}  // namespace soak

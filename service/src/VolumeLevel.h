// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <limits>

namespace OrvaneDA {

// The level as the UI reads it, truncated toward zero. Silence is minus infinity; the lowest integer represents it.
inline int wholeLevel(float decibel) {
    constexpr int LOWEST = std::numeric_limits<int>::min();
    return decibel > static_cast<float>(LOWEST) ? static_cast<int>(decibel) : LOWEST;
}

}  // namespace OrvaneDA

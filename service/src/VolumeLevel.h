// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <limits>

namespace OrvaneDA {

// The capture level as the UI reads it, cut towards zero. Silence is minus infinity, which no integer holds: the lowest
// one stands for it.
inline int wholeLevel(float decibel) {
    constexpr int LOWEST = std::numeric_limits<int>::min();
    return decibel > static_cast<float>(LOWEST) ? static_cast<int>(decibel) : LOWEST;
}

}  // namespace OrvaneDA

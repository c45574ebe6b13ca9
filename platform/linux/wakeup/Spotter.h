// SPDX-License-Identifier: Apache-2.0
// A spotter searches a stream of samples for the wake word. One thread at a time uses it. To add one, implement this
// interface and choose it in makeSpotter (Spotters.h).
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace wakeup {

struct Detection {
    std::string wakeWord;
    int confidence = 0;  // 0 to 100
};

// All functions throw std::exception when the spotter fails.
class Spotter {
public:
    virtual ~Spotter() = default;
    // Forgets the samples before; the next sample is the first of a new search.
    virtual void begin() = 0;
    // 16 kHz samples. A detection ends the search until the next begin().
    virtual std::optional<Detection> accept(const int16_t* samples, std::size_t count) = 0;
    // Ends the search. Returns a detection that only the end of the samples makes certain.
    virtual std::optional<Detection> end() = 0;
};

}  // namespace wakeup

// SPDX-License-Identifier: Apache-2.0
// A spotter searches a stream of samples for the wake word. One thread at a time may use it. To add a spotter,
// implement this interface and select it in makeSpotter (Spotters.h).
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
    // Discards the previous samples and begins a new search with the next one.
    virtual void begin() = 0;
    // Samples at 16 kHz. A detection ends the search until the next begin().
    virtual std::optional<Detection> accept(const int16_t* samples, std::size_t count) = 0;
    // Ends the search. Returns a detection that was not certain before the last sample.
    virtual std::optional<Detection> end() = 0;
};

}  // namespace wakeup

// SPDX-License-Identifier: Apache-2.0
// A keyword spotter: what an engine must offer to listen for the wake-up word. Used by one thread at a time. Adding
// one: a class of this interface and a line in SphinxSpotter.cpp's place in WakeupContext::Initialize.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace wakeup {

struct Detection {
    std::string word;
    int confidence = 0;  // 0 to 100
};

class Spotter {
public:
    virtual ~Spotter() = default;
    // Forgets what was heard; the next sample is the first.
    virtual void begin() = 0;
    // 16 kHz samples. An answer ends the search until the next begin(). Throws std::exception when the engine fails.
    virtual std::optional<Detection> accept(const int16_t* samples, std::size_t count) = 0;
    // The sound is interrupted here; the last chance for a word just spoken.
    virtual std::optional<Detection> end() = 0;
};

}  // namespace wakeup

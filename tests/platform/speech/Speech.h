// SPDX-License-Identifier: Apache-2.0
// Speech that flite synthesizes, as 16 kHz samples.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace speech {

using Samples = std::vector<int16_t>;

// The voices of the recognition tests.
inline const std::vector<std::string> kVoices{"slt", "awb", "rms", "kal16"};

// Synthesizes each text once in each process. Throws std::runtime_error if flite is missing or fails.
const Samples& say(const std::string& voice, const std::string& text);

// Digital silence.
Samples silence(double seconds);
// White noise of the given peak.
Samples noise(double seconds, int peak);

Samples join(const std::vector<Samples>& parts);

}  // namespace speech

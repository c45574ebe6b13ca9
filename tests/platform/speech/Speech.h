// SPDX-License-Identifier: Apache-2.0
// Speech made by flite, as samples of 16 kHz.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace speech {

using Samples = std::vector<int16_t>;

// The voices that the recognition is held to.
inline const std::vector<std::string> kVoices{"slt", "awb", "rms", "kal16"};

// Throws std::runtime_error when flite is missing or fails. Each text is spoken once a process.
const Samples& say(const std::string& voice, const std::string& text);

// Digital silence.
Samples silence(double seconds);
// White noise of the given peak.
Samples noise(double seconds, int peak);

Samples join(const std::vector<Samples>& parts);
Samples loadWav(const std::string& path);
void saveWav(const std::string& path, const Samples& samples);

}  // namespace speech

// SPDX-License-Identifier: Apache-2.0
// Creates tones and measures them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tone {

using Samples = std::vector<int16_t>;

// A sine of `amplitude` (full scale is 32767).
Samples sine(double hertz, int rate, double seconds, double amplitude = 8000);
// The amplitude of one frequency in the samples.
double amplitudeAt(double hertz, int rate, const Samples& samples);
// Root mean square.
double level(const Samples& samples);
// Interleaves left and right up to the end of the shorter one.
Samples stereo(const Samples& left, const Samples& right);
// Writes a file into the directory and returns its path.
std::string wav(const std::string& folder, const std::string& name, int rate, int channels, const Samples& samples);

}  // namespace tone

// SPDX-License-Identifier: Apache-2.0
#include "Tone.h"

#include <algorithm>
#include <cmath>
#include <complex>

#include "sndfile/SoundFile.h"

namespace tone {

Samples sine(double hertz, int rate, double seconds, double amplitude) {
    Samples samples(static_cast<std::size_t>(rate * seconds));
    for (std::size_t i = 0; i < samples.size(); ++i) {
        samples[i] =
            static_cast<int16_t>(std::lrint(amplitude * std::sin(2 * M_PI * hertz * static_cast<double>(i) / rate)));
    }
    return samples;
}

double amplitudeAt(double hertz, int rate, const Samples& samples) {
    std::complex<double> sum;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        sum += static_cast<double>(samples[i]) * std::polar(1.0, -2 * M_PI * hertz * static_cast<double>(i) / rate);
    }
    return 2 * std::abs(sum) / static_cast<double>(samples.size());
}

double level(const Samples& samples) {
    double sum = 0;
    for (const int16_t sample : samples) {
        sum += static_cast<double>(sample) * sample;
    }
    return std::sqrt(sum / static_cast<double>(samples.size()));
}

Samples stereo(const Samples& left, const Samples& right) {
    Samples both;
    for (std::size_t i = 0; i < std::min(left.size(), right.size()); ++i) {
        both.push_back(left[i]);
        both.push_back(right[i]);
    }
    return both;
}

std::string wav(const std::string& folder, const std::string& name, int rate, int channels, const Samples& samples) {
    const std::string path = folder + "/" + name;
    sndfile::writeWav(path, rate, channels, samples.data(), samples.size() / channels);
    return path;
}

}  // namespace tone

// SPDX-License-Identifier: Apache-2.0
#include "Recording.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace audio {

namespace {

constexpr int kLobes = 16;     // on each side of the filter
constexpr int kPerLobe = 256;  // table entries
constexpr std::size_t kPiece = 4096;

// One side of a low-pass filter: a sinc function with a raised-cosine window.
using Filter = std::array<float, kLobes * kPerLobe + 2>;

const Filter& filter() {
    static const Filter table = [] {
        Filter values{};
        for (int i = 0; i <= kLobes * kPerLobe; ++i) {
            const double x = static_cast<double>(i) / kPerLobe;
            const double wave = i == 0 ? 1.0 : std::sin(M_PI * x) / (M_PI * x);
            values[i] = static_cast<float>(wave * (0.5 + 0.5 * std::cos(M_PI * x / kLobes)));
        }
        return values;
    }();
    return table;
}

float weight(double distance) {
    const double index = std::abs(distance) * kPerLobe;
    const auto below = static_cast<std::size_t>(index);
    const auto part = static_cast<float>(index - static_cast<double>(below));
    return filter()[below] + part * (filter()[below + 1] - filter()[below]);
}

int16_t toSample(float value) {
    return static_cast<int16_t>(std::lrint(std::clamp(value * 32768.0F, -32768.0F, 32767.0F)));
}

}  // namespace

Recording::Recording(const std::string& path, const Format& format)
    : mFile(path),
      mFormat(format),
      mStep(static_cast<double>(mFile.rate()) / format.rate),
      mCutoff(std::min(1.0, 1.0 / mStep)) {}

void Recording::seek(double seconds) {
    mPosition = std::floor(seconds * mFile.rate());
    mFirst = mEnd = std::max<int64_t>(0, static_cast<int64_t>(mPosition) - 2 * kLobes);
    mWindow.clear();
    mAtEnd = mFirst >= mFile.frames() || !mFile.seek(mFirst);
}

std::size_t Recording::read(int16_t* out, std::size_t frames) {
    const double reach = kLobes / mCutoff;
    std::array<float, 2> mixed{};
    for (std::size_t i = 0; i < frames; ++i) {
        while (!mAtEnd && static_cast<double>(mEnd) <= mPosition + reach + 1) {
            mAtEnd = !load();
        }
        if (mPosition >= static_cast<double>(mEnd)) {
            return i;
        }
        interpolate(mPosition, mixed.data());
        for (int channel = 0; channel < mFormat.channels; ++channel) {
            *out++ = toSample(mixed[channel]);
        }
        mPosition += mStep;
    }
    forget(static_cast<int64_t>(mPosition - reach) - 1);
    return frames;
}

bool Recording::load() {
    std::vector<float> piece(kPiece * mFile.channels());
    const std::size_t frames = mFile.read(piece.data(), kPiece);
    mix(piece.data(), frames);
    mEnd += static_cast<int64_t>(frames);
    return frames > 0;
}

// Mono output is the mean of all channels. Stereo output uses the file's first two channels, or duplicates its only
// one.
void Recording::mix(const float* in, std::size_t frames) {
    const int channels = mFile.channels();
    for (std::size_t i = 0; i < frames; ++i, in += channels) {
        if (mFormat.channels == 1) {
            float sum = 0;
            for (int channel = 0; channel < channels; ++channel) {
                sum += in[channel];
            }
            mWindow.push_back(sum / static_cast<float>(channels));
        } else {
            mWindow.push_back(in[0]);
            mWindow.push_back(in[channels > 1 ? 1 : 0]);
        }
    }
}

void Recording::forget(int64_t before) {
    const int64_t count = std::min(before, mEnd) - mFirst;
    if (count > static_cast<int64_t>(kPiece)) {
        mWindow.erase(mWindow.begin(), mWindow.begin() + count * mFormat.channels);
        mFirst += count;
    }
}

float Recording::at(int64_t frame, int channel) const {
    return frame < mFirst || frame >= mEnd ? 0.0F : mWindow[(frame - mFirst) * mFormat.channels + channel];
}

void Recording::interpolate(double position, float* out) const {
    if (mStep == 1.0) {
        for (int channel = 0; channel < mFormat.channels; ++channel) {
            out[channel] = at(static_cast<int64_t>(position), channel);
        }
        return;
    }
    const double reach = kLobes / mCutoff;
    const auto last = static_cast<int64_t>(std::floor(position + reach));
    std::fill_n(out, mFormat.channels, 0.0F);
    float total = 0;
    for (auto frame = static_cast<int64_t>(std::ceil(position - reach)); frame <= last; ++frame) {
        const float share = weight((static_cast<double>(frame) - position) * mCutoff);
        total += share;
        for (int channel = 0; channel < mFormat.channels; ++channel) {
            out[channel] += share * at(frame, channel);
        }
    }
    for (int channel = 0; channel < mFormat.channels; ++channel) {
        out[channel] /= total;
    }
}

}  // namespace audio

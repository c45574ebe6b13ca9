// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "CaptureSource.h"
#include "sndfile/SoundFile.h"

namespace audio {

// Reads a sound file piece by piece as 16-bit frames, converted to the requested rate and number of channels. One
// thread.
class Recording {
public:
    // Throws std::runtime_error with the reason.
    Recording(const std::string& path, const Format& format);

    // After a seek past the end, there are no frames to read.
    void seek(double seconds);
    // Returns the number of frames read; less than `frames` only at the end.
    std::size_t read(int16_t* out, std::size_t frames);

private:
    bool load();
    void mix(const float* in, std::size_t frames);
    void forget(int64_t before);
    float at(int64_t frame, int channel) const;
    void interpolate(double position, float* out) const;

    sndfile::Reader mFile;
    const Format mFormat;
    const double mStep;          // frames of the file per output frame
    const double mCutoff;        // of the low-pass filter: 1 is half the file's rate
    std::vector<float> mWindow;  // mixed frames from mFirst on
    int64_t mFirst = 0;
    int64_t mEnd = 0;
    bool mAtEnd = false;
    double mPosition = 0;  // in frames of the file
};

}  // namespace audio

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace audio {

struct Format {
    int rate;
    int channels;  // 1 or 2
};

// The source of captured frames: the sound server, or a recording that replaces the microphone. To add a source, write
// its file and add one line to the table in CaptureSource.cpp and one to CMakeLists.txt.
class CaptureSource {
public:
    virtual ~CaptureSource() = default;
    // Blocks until `frames` interleaved frames are read. False when the source fails or is interrupted. A source that
    // keeps failing waits a little in each call, so that its reader need not.
    virtual bool read(int16_t* samples, std::size_t frames) = 0;
    // Ends the read in progress and all later ones. Any thread.
    virtual void interrupt() noexcept = 0;
};

// Opens the source that the environment names, or else the sound server, which may come later. Throws
// std::runtime_error with one line that names the reason.
std::unique_ptr<CaptureSource> openCaptureSource(const Format& format);

}  // namespace audio

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
    // Blocks until it has read `frames` interleaved frames. False if the source fails or is interrupted. A source that
    // keeps failing pauses in each call, so that its reader does not have to.
    virtual bool read(int16_t* samples, std::size_t frames) = 0;
    // Ends the read in progress and all later ones. Any thread.
    virtual void interrupt() noexcept = 0;
};

// Opens the source that the environment names, or the sound server by default, which may become available later. Throws
// std::runtime_error with the reason in one line.
std::unique_ptr<CaptureSource> openCaptureSource(const Format& format);

}  // namespace audio

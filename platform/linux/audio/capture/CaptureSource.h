// SPDX-License-Identifier: Apache-2.0
// Where captured sound comes from: the sound server, or a recording that is played in the microphone's place. To add a
// source: its own file, its line in the table in CaptureSource.cpp, its line in CMakeLists.txt.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace audio {

struct Format {
    int rate;
    int channels;  // 1 or 2
};

class CaptureSource {
public:
    virtual ~CaptureSource() = default;
    // Blocks until `frames` interleaved frames have come. False when the source has failed or was interrupted; a source
    // that goes on failing makes each call wait a little, so that its reader need not.
    virtual bool read(int16_t* samples, std::size_t frames) = 0;
    // Ends the read in progress and all later ones. Any thread.
    virtual void interrupt() noexcept = 0;
};

// Opens the source that the environment names, else the sound server, which need not be there yet. Throws
// std::runtime_error with one line that says what is wrong.
std::unique_ptr<CaptureSource> openCaptureSource(const Format& format);

}  // namespace audio

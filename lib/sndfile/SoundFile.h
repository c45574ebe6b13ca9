// SPDX-License-Identifier: Apache-2.0
// Owns an open sound file. Not for several threads at once; all operations block on the disk.
#pragma once

#include <sndfile.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace sndfile {

struct Close {
    void operator()(SNDFILE* file) const noexcept { sf_close(file); }
};

class Reader {
public:
    // Any format that the library knows. Throws std::runtime_error with the reason.
    explicit Reader(const std::string& path);

    int rate() const { return mInfo.samplerate; }
    int channels() const { return mInfo.channels; }
    int64_t frames() const { return mInfo.frames; }
    bool seek(int64_t frame) { return sf_seek(mFile.get(), frame, SEEK_SET) == frame; }
    // Interleaved samples from -1 to 1; how many frames were read, fewer than asked at the end and on a broken file.
    std::size_t read(float* samples, std::size_t frames);

private:
    SF_INFO mInfo{};
    std::unique_ptr<SNDFILE, Close> mFile;
};

// Writes a WAV file of 16-bit samples whole. Throws std::runtime_error with the reason; what was written stays then.
void writeWav(const std::string& path, int rate, int channels, const int16_t* samples, std::size_t frames);

}  // namespace sndfile

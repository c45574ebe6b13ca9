// SPDX-License-Identifier: Apache-2.0
// Sound files. All operations block on the disk.
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

// Owns an open sound file. One thread at a time.
class Reader {
public:
    // Accepts any format that the library supports. Throws std::runtime_error with the reason.
    explicit Reader(const std::string& path);

    int rate() const { return mInfo.samplerate; }
    int channels() const { return mInfo.channels; }
    int64_t frames() const { return mInfo.frames; }
    bool seek(int64_t frame) { return sf_seek(mFile.get(), frame, SEEK_SET) == frame; }
    // Reads interleaved samples from -1 to 1. Returns the number of frames read, which is less than `frames` at the end
    // of the file or if the file is damaged.
    std::size_t read(float* samples, std::size_t frames);

private:
    SF_INFO mInfo{};
    std::unique_ptr<SNDFILE, Close> mFile;
};

// Writes a complete WAV file of 16-bit samples. Throws std::runtime_error with the reason and may leave a partial file.
void writeWav(const std::string& path, int rate, int channels, const int16_t* samples, std::size_t frames);

}  // namespace sndfile

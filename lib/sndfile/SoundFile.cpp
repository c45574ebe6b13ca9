// SPDX-License-Identifier: Apache-2.0
#include "sndfile/SoundFile.h"

#include <stdexcept>

namespace sndfile {

Reader::Reader(const std::string& path) : mFile(sf_open(path.c_str(), SFM_READ, &mInfo)) {
    if (!mFile) {
        throw std::runtime_error(sf_strerror(nullptr));
    }
    if (mInfo.samplerate < 1000 || mInfo.samplerate > 768000 || mInfo.channels < 1 || mInfo.channels > 64) {
        throw std::runtime_error("the sample rate or the number of channels is out of range");
    }
}

std::size_t Reader::read(float* samples, std::size_t frames) {
    const sf_count_t count = sf_readf_float(mFile.get(), samples, static_cast<sf_count_t>(frames));
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

void writeWav(const std::string& path, int rate, int channels, const int16_t* samples, std::size_t frames) {
    SF_INFO info{};
    info.samplerate = rate;
    info.channels = channels;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    std::unique_ptr<SNDFILE, Close> file(sf_open(path.c_str(), SFM_WRITE, &info));
    if (!file) {
        throw std::runtime_error(sf_strerror(nullptr));
    }
    const bool whole =
        sf_writef_short(file.get(), samples, static_cast<sf_count_t>(frames)) == static_cast<sf_count_t>(frames);
    const std::string why = sf_strerror(file.get());
    if (sf_close(file.release()) != 0 || !whole) {
        throw std::runtime_error(whole ? "cannot complete the file" : why);
    }
}

}  // namespace sndfile

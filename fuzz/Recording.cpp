// SPDX-License-Identifier: Apache-2.0
// A recording that replaces the microphone, read with one and with two channels.
#include "audio/capture/Recording.h"

#include <array>
#include <exception>

#include "Entries.h"
#include "sphinx/MemoryFile.h"

namespace fuzz {
namespace {

constexpr int kRate = 16000;
constexpr std::size_t kBlock = 256;

void readRecording(const std::string& path, int channels, double from) {
    audio::Recording recording(path, {kRate, channels});
    recording.seek(from);
    std::array<int16_t, 2 * kBlock> block{};
    for (int blocks = 0; blocks < 40; ++blocks) {
        const std::size_t frames = recording.read(block.data(), kBlock);
        require(frames <= kBlock, "no more than requested");
        if (frames < kBlock) {
            return;
        }
    }
}

}  // namespace

void recording(std::string_view bytes) {
    try {
        const sphinx::MemoryFile file{std::string(bytes)};
        readRecording(file.path(), 1, 0);
        readRecording(file.path(), 2, 0.01);
        readRecording(file.path(), 1, 1e9);
    } catch (const std::exception&) {
        // An unreadable recording is refused with an exception.
    }
}

}  // namespace fuzz

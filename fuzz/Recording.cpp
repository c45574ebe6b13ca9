// SPDX-License-Identifier: Apache-2.0
// A recording that stands in for the microphone, heard for a while in both shapes that the recorder asks for.
#include "audio/capture/Recording.h"

#include <array>
#include <exception>

#include "Entries.h"
#include "sphinx/MemoryFile.h"

namespace fuzz {
namespace {

constexpr int kRate = 16000;
constexpr std::size_t kBlock = 256;

void hear(const std::string& path, int channels, double from) {
    audio::Recording recording(path, {kRate, channels});
    recording.seek(from);
    std::array<int16_t, 2 * kBlock> block{};
    for (int blocks = 0; blocks < 40; ++blocks) {
        const std::size_t heard = recording.read(block.data(), kBlock);
        require(heard <= kBlock, "no more than was asked for");
        if (heard < kBlock) {
            return;
        }
    }
}

}  // namespace

void recording(std::string_view bytes) {
    try {
        const sphinx::MemoryFile file{std::string(bytes)};
        hear(file.path(), 1, 0);
        hear(file.path(), 2, 0.01);
        hear(file.path(), 1, 1e9);
    } catch (const std::exception&) {
        // What cannot be heard is refused so.
    }
}

}  // namespace fuzz

// SPDX-License-Identifier: Apache-2.0
// If memory runs out while a capture is opened, no later event calls the capture.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <vector>

#include "Captured.h"
#include "audio/capture/PulseSource.h"
#include "room/SoundRoom.h"
#include "support/Eventually.h"

namespace {

thread_local long blocksLeft = -1;  // negative: no limit

void* allocate(std::size_t size) {
    void* const block = blocksLeft == 0 ? nullptr : std::malloc(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    blocksLeft -= blocksLeft > 0 ? 1 : 0;
    return block;
}

}  // namespace

void* operator new(std::size_t size) {
    return allocate(size);
}
void* operator new[](std::size_t size) {
    return allocate(size);
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}
void operator delete[](void* block) noexcept {
    std::free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    std::free(block);
}

namespace {

using audio::PulseSource;

constexpr audio::Format kFormat{16000, 1};

// Overwrites its memory after a failure, so that a later call of the source ends the process. Returns false if memory
// ran out.
bool opensWith(long blocks) {
    alignas(PulseSource) static char place[sizeof(PulseSource)];
    PulseSource* source = nullptr;
    blocksLeft = blocks;
    try {
        source = new (place) PulseSource(kFormat);
    } catch (const std::bad_alloc&) {
    }
    blocksLeft = -1;
    if (source) {
        source->~PulseSource();
    }
    std::memset(place, 0xff, sizeof place);
    return source != nullptr;
}

void setKey(const char* value) {
    ASSERT_EQ(system((std::string("dconf write /db/mic_key/status ") + value).c_str()), 0);
}

TEST(ACaptureThatRunsOutOfMemory, IsNotCalledWhenTheMicrophoneKeyOrTheServerChanges) {
    SoundRoom room;
    setKey("1");
    std::vector<std::unique_ptr<PulseSource>> others;  // lists of every length, because only some grow for one more
    int failures = 0;
    for (std::size_t count = 1; count <= 5; ++count) {
        others.push_back(std::make_unique<PulseSource>(kFormat));
        for (long blocks = 0; !opensWith(blocks); ++blocks) {
            ++failures;
        }
    }
    EXPECT_GT(failures, 5);
    ASSERT_TRUE(eventually([&] { return captured::streams().size() == others.size(); }));
    setKey("0");
    EXPECT_TRUE(eventually([] { return captured::streams().empty(); }));
    setKey("1");
    EXPECT_TRUE(eventually([&] { return captured::streams().size() == others.size(); }));
    room.kill();
    room.start();
    EXPECT_TRUE(eventually([&] { return captured::streams().size() == others.size(); }));
}

}  // namespace

// SPDX-License-Identifier: Apache-2.0
#include "Controller/SRecordListener.h"

#include <string.h>

#include "unit/Fixture.h"

namespace {

class Collector : public OrvaneDA::SRecordListener {
public:
    explicit Collector(int chunkSize) : SRecordListener(chunkSize) {}
    void implDataHandled(char* data, int size) override {
        chunks.emplace_back(data, size);
        delete[] data;
    }
    Texts chunks;
};

std::string numbered(int from, int size) {
    std::string bytes(size, 0);
    for (int i = 0; i < size; ++i) {
        bytes[i] = static_cast<char>((from + i) % 251);
    }
    return bytes;
}

void deliver(OrvaneDA::SRecordListener& listener, const std::string& bytes) {
    char* block = new char[bytes.size()];
    memcpy(block, bytes.data(), bytes.size());
    listener.onDataHandled(block, static_cast<int>(bytes.size()));
}

}  // namespace

TEST(ARecordListenerWithChunksOf3200, ReceivesTheFirstChunkWithTheFourthBlockAndAllBytesInOrder) {
    Collector listener(3200);
    for (int i = 0; i < 3; ++i) {
        deliver(listener, numbered(i * 1024, 1024));
    }
    EXPECT_TRUE(listener.chunks.empty());
    deliver(listener, numbered(3 * 1024, 1024));
    ASSERT_EQ(listener.chunks.size(), 1u);
    EXPECT_EQ(listener.chunks[0], numbered(0, 3200));
    // 896 bytes are buffered, so 2304 more fill the next chunk.
    deliver(listener, numbered(4096, 2303));
    EXPECT_EQ(listener.chunks.size(), 1u);
    deliver(listener, numbered(4096 + 2303, 1));
    ASSERT_EQ(listener.chunks.size(), 2u);
    EXPECT_EQ(listener.chunks[1], numbered(3200, 3200));
}

TEST(ARecordListenerWithSmallChunks, CutsOneBlockIntoSeveral) {
    Collector listener(4);
    deliver(listener, "abcdefghij");
    EXPECT_EQ(listener.chunks, (Texts{"abcd", "efgh"}));
    deliver(listener, "kl");
    EXPECT_EQ(listener.chunks.back(), "ijkl");
}

TEST(ARecordListenerWithoutAChunkSize, PassesBlocksThroughWhole) {
    Collector listener(0);
    deliver(listener, "abc");
    deliver(listener, "d");
    EXPECT_EQ(listener.chunks, (Texts{"abc", "d"}));
}

TEST(ANewRecordListener, IsNotEnabled) {
    Collector listener(0);
    EXPECT_FALSE(listener.isEnabled());
}

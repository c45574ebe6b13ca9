// SPDX-License-Identifier: Apache-2.0
#include "Controller/Trigger/vocon_4_10/WakeupAudioIn.h"

#include <string.h>

#include <thread>

#include "unit/Fixture.h"

using OrvaneDA::WakeupAudioIn;

namespace {

void deliver(WakeupAudioIn& feed, int number) {
    char* block = new char[sizeof number];
    memcpy(block, &number, sizeof number);
    feed.onDataHandled(block, sizeof number);
}

// Returns the number in the next block, or -1 when the feed gives none.
int fetch(WakeupAudioIn& feed) {
    void* data = &feed;
    unsigned int size = 99;
    EXPECT_EQ(feed.FetchData(data, size), 0);
    if (data == nullptr) {
        EXPECT_EQ(size, 0u);
        return -1;
    }
    int number = 0;
    EXPECT_EQ(size, sizeof number);
    memcpy(&number, data, sizeof number);
    EXPECT_EQ(feed.ReturnData(data), 0);
    return number;
}

bool hasData(WakeupAudioIn& feed) {
    bool available = false;
    EXPECT_EQ(feed.HasData(available), 0);
    return available;
}

}  // namespace

TEST(AFeed, ReturnsTheBlocksInTheOrderOfTheirArrival) {
    WakeupAudioIn feed;
    feed.setEnabled(true);
    EXPECT_EQ(feed.Start(), 0);
    for (int i = 0; i < 3; ++i) {
        deliver(feed, i);
    }
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(fetch(feed), i);
    }
    EXPECT_EQ(feed.Stop(), 0);
}

TEST(AFeed, ReturnsTheRecordersBlockWithoutACopy) {
    WakeupAudioIn feed;
    feed.setEnabled(true);
    char* block = new char[8];
    feed.onDataHandled(block, 8);
    void* data = nullptr;
    unsigned int size = 0;
    feed.FetchData(data, size);
    EXPECT_EQ(data, block);
    feed.ReturnData(data);
}

TEST(AFeedOf501Blocks, DropsTheOldestWhenAnotherArrives) {
    WakeupAudioIn feed;
    feed.setEnabled(true);
    for (int i = 0; i < 501; ++i) {
        deliver(feed, i);
    }
    deliver(feed, 501);
    EXPECT_EQ(fetch(feed), 1);
    int left = 0;
    while (hasData(feed)) {
        fetch(feed);
        ++left;
    }
    EXPECT_EQ(left, 500);
}

TEST(AClosedFeed, ReturnsNothingEvenWhenBlocksAreQueued) {
    WakeupAudioIn feed;
    deliver(feed, 7);
    EXPECT_EQ(fetch(feed), -1);
    EXPECT_TRUE(hasData(feed));
}

// Runs code in the first pause of the feed, while the engine's thread waits for a block.
class AnOpenEmptyFeed : public PlatformTest {
protected:
    AnOpenEmptyFeed() { feed.setEnabled(true); }
    int fetchWith(const std::function<void()>& meanwhile) {
        fake::mainLoop().onSleep([&](unsigned microseconds) {
            EXPECT_EQ(microseconds, 1000u);
            if (++pauses == 1) {
                meanwhile();
            }
        });
        int got = -2;
        std::thread([&] { got = fetch(feed); }).join();
        return got;
    }
    WakeupAudioIn feed;
    int pauses = 0;
};

TEST_F(AnOpenEmptyFeed, MakesTheEngineWaitForTheNextBlock) {
    EXPECT_EQ(fetchWith([&] {
                  EXPECT_FALSE(hasData(feed)) << "the queue is not locked while the engine waits";
                  deliver(feed, 42);
              }),
              42);
    EXPECT_EQ(pauses, 1);
}

TEST_F(AnOpenEmptyFeed, ReleasesTheEngineWithinAMillisecondWhenItIsClosed) {
    EXPECT_EQ(fetchWith([&] { feed.setEnabled(false); }), -1);
    EXPECT_EQ(pauses, 1);
}

TEST(AFeed, ReturnsNothingForANullBlock) {
    WakeupAudioIn feed;
    feed.setEnabled(true);
    feed.onDataHandled(nullptr, 8);
    deliver(feed, 5);
    EXPECT_EQ(fetch(feed), -1);
    EXPECT_EQ(fetch(feed), 5);
}

TEST(AnEmptyFeed, HasNoData) {
    WakeupAudioIn feed;
    bool available = true;
    EXPECT_EQ(feed.HasData(available), 0);
    EXPECT_FALSE(available);
}

TEST(AFeed, LosesNoBlockBetweenTwoThreads) {
    WakeupAudioIn feed;
    feed.setEnabled(true);
    std::thread engine([&] {
        for (int i = 0; i < 400; ++i) {
            EXPECT_EQ(fetch(feed), i);
        }
    });
    for (int i = 0; i < 400; ++i) {
        deliver(feed, i);
    }
    engine.join();
    EXPECT_FALSE(hasData(feed));
}

TEST(AFeed, IgnoresTheReturnOfANullBlock) {
    WakeupAudioIn feed;
    EXPECT_EQ(feed.ReturnData(nullptr), 0);
}

TEST(AClearedFeed, IsEmpty) {
    WakeupAudioIn feed;
    deliver(feed, 1);
    deliver(feed, 2);
    feed.clearQueue();
    EXPECT_FALSE(hasData(feed));
}

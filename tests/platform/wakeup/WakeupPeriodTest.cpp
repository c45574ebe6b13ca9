// SPDX-License-Identifier: Apache-2.0
// Periods of listening: how they begin and end, and on which thread that is told.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ctime>
#include <future>

#include "EngineRoom.h"

namespace {

using speech::join;
using speech::say;
using speech::silence;

class Listening : public testing::Test {
protected:
    Listening() { mLoaded = mRoom.load("ENU", "quorbit"); }
    void SetUp() override { ASSERT_TRUE(mLoaded); }

    static speech::Samples wakeUp() { return join({silence(1), say("awb", "hey quorbit"), silence(0.5)}); }

    EngineRoom mRoom;
    bool mLoaded;
};

TEST_F(Listening, EndsBeforeTheWakeUpIsToldOnTheEnginesThread) {
    bool listening = true;
    int stops = 0;
    mRoom.witness.inWakeup = [&, ctx = mRoom.ctx.get()] {
        listening = ctx->IsListening();
        stops = mRoom.feed.stops;
    };
    mRoom.feed.add(wakeUp());
    mRoom.listen();
    ASSERT_TRUE(mRoom.witness.waitForWakeups(1));
    mRoom.ctx.reset();
    EXPECT_FALSE(listening);
    EXPECT_EQ(stops, 1);
    EXPECT_NE(mRoom.witness.wakeups[0].thread, std::this_thread::get_id());
    EXPECT_EQ(mRoom.witness.cancels, 0);
}

TEST_F(Listening, StaysOverAfterAWakeUpUntilItIsStartedAgain) {
    mRoom.feed.add(join({wakeUp(), wakeUp()}));
    mRoom.listen();
    ASSERT_TRUE(mRoom.witness.waitForWakeups(1));
    EXPECT_GT(mRoom.feed.left(), 60U);
    mRoom.ctx->StartListening();
    EXPECT_TRUE(mRoom.witness.waitForWakeups(2));
}

TEST_F(Listening, StartedFromWithinTheWakeUpBeginsFresh) {
    mRoom.witness.inWakeup = [ctx = mRoom.ctx.get()] { ctx->StartListening(); };
    mRoom.feed.add(join({wakeUp(), silence(2)}));
    mRoom.listen();
    ASSERT_TRUE(mRoom.feed.waitUntilEmpty());
    EXPECT_EQ(mRoom.witness.wakeups.size(), 1U);
    EXPECT_TRUE(mRoom.ctx->IsListening());
    mRoom.feed.add(wakeUp());
    EXPECT_TRUE(mRoom.witness.waitForWakeups(2));
}

TEST_F(Listening, StartedByAnotherThreadWhileTheWakeUpIsToldBeginsAfterIt) {
    bool waited = false;
    std::future<void> start;
    mRoom.witness.inWakeup = [&, ctx = mRoom.ctx.get()] {
        if (start.valid()) {
            return;
        }
        start = std::async(std::launch::async, [ctx] { ctx->StartListening(); });
        waited = start.wait_for(std::chrono::milliseconds(100)) == std::future_status::timeout && !ctx->IsListening();
    };
    mRoom.feed.add(wakeUp());
    mRoom.listen();
    ASSERT_TRUE(mRoom.witness.waitForWakeups(1));
    mRoom.feed.add(wakeUp());
    EXPECT_TRUE(mRoom.witness.waitForWakeups(2));
    mRoom.ctx.reset();  // before what its thread looks at
    EXPECT_TRUE(waited);
}

TEST_F(Listening, ForgetsTheFirstHalfOfAWordHeardBeforeItBeganAnew) {
    const speech::Samples whole = wakeUp();
    const auto half = static_cast<long>(16000 + (whole.size() - 24000) / 2);
    mRoom.feed.add({whole.begin(), whole.begin() + half});
    mRoom.listen();
    ASSERT_TRUE(mRoom.feed.waitUntilEmpty());
    mRoom.ctx->CancelListening();
    ASSERT_TRUE(mRoom.witness.waitFor([&] { return mRoom.witness.cancels == 1; }));
    mRoom.ctx->StartListening();
    mRoom.feed.add(join({{whole.begin() + half, whole.end()}, silence(1)}));
    ASSERT_TRUE(mRoom.feed.waitUntilEmpty());
    EXPECT_THAT(mRoom.witness.wakeups, testing::IsEmpty());
}

TEST_F(Listening, IsToldAsCancelledOnceWhenItIsCancelled) {
    mRoom.listen();
    ASSERT_TRUE(mRoom.ctx->IsListening());
    mRoom.ctx->CancelListening();
    EXPECT_FALSE(mRoom.ctx->IsListening());
    mRoom.ctx->CancelListening();
    ASSERT_TRUE(mRoom.witness.waitFor([&] { return mRoom.witness.cancels >= 1; }));
    mRoom.ctx.reset();
    EXPECT_EQ(mRoom.witness.cancels, 1);
    EXPECT_EQ(mRoom.feed.starts, mRoom.feed.stops);
}

TEST_F(Listening, CancelledAndStartedAtOnceGoesOn) {
    mRoom.listen();
    for (int i = 0; i < 50; ++i) {
        mRoom.ctx->CancelListening();
        mRoom.ctx->StartListening();
        EXPECT_TRUE(mRoom.ctx->IsListening());
    }
    mRoom.feed.add(wakeUp());
    EXPECT_TRUE(mRoom.witness.waitForWakeups(1));
    EXPECT_THAT(mRoom.witness.warnings, testing::IsEmpty());
}

TEST_F(Listening, EndsWithTheContextAndNothingIsCalledAfterIt) {
    mRoom.feed.add(speech::noise(60, 2000));
    mRoom.listen();
    ASSERT_TRUE(mRoom.feed.waitUntilRead());
    mRoom.ctx.reset();
    mRoom.feed.add(wakeUp());
    const int fetches = mRoom.feed.fetches.load();
    const int cancels = mRoom.witness.cancels;
    EXPECT_EQ(mRoom.feed.starts, mRoom.feed.stops);
    EXPECT_EQ(mRoom.feed.loaned(), 0);
    // While another engine hears a whole word, one that still listened would too.
    EngineRoom other;
    ASSERT_TRUE(other.load("ENU", "quorbit"));
    other.feed.add(wakeUp());
    other.listen();
    ASSERT_TRUE(other.witness.waitForWakeups(1));
    EXPECT_EQ(mRoom.feed.fetches, fetches);
    EXPECT_THAT(mRoom.witness.wakeups, testing::IsEmpty());
    EXPECT_EQ(mRoom.witness.cancels, cancels);
}

TEST_F(Listening, LeavesAnAudioInputAloneOnceItIsDetached) {
    auto feed = std::make_unique<Feed>();
    mRoom.ctx->AttachAudioIn(feed.get());
    mRoom.ctx->StartListening();
    mRoom.ctx->AttachAudioIn(nullptr);
    EXPECT_EQ(feed->starts, feed->stops);
    feed.reset();  // an engine that still read it would be caught by the address sanitizer
    EXPECT_FALSE(mRoom.ctx->IsListening());
    mRoom.listen();
    mRoom.feed.add(wakeUp());
    EXPECT_TRUE(mRoom.witness.waitForWakeups(1));
}

TEST_F(Listening, GivesEveryBlockBack) {
    mRoom.feed.add(join({silence(2), wakeUp()}));
    mRoom.listen();
    ASSERT_TRUE(mRoom.witness.waitForWakeups(1));
    EXPECT_EQ(mRoom.feed.loaned(), 0);
    EXPECT_EQ(mRoom.feed.strangers, 0);
}

TEST_F(Listening, ToAFeedThatHasNothingNeverFetchesAndCostsNextToNothing) {
    mRoom.listen();
    mRoom.feed.add(silence(0.1));
    ASSERT_TRUE(mRoom.feed.waitUntilEmpty());
    timespec before{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &before);
    const int fetches = mRoom.feed.fetches.load();
    std::mutex mutex;
    std::condition_variable quiet;
    std::unique_lock lock(mutex);
    quiet.wait_for(lock, std::chrono::milliseconds(500), [] { return false; });
    timespec after{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &after);
    const double used =
        static_cast<double>(after.tv_sec - before.tv_sec) + 1e-9 * static_cast<double>(after.tv_nsec - before.tv_nsec);
    EXPECT_LT(used, 0.05);
    EXPECT_EQ(mRoom.feed.fetches, fetches);
}

TEST_F(Listening, IsSafeFromManyThreadsAtOnce) {
    mRoom.ctx->AttachAudioIn(&mRoom.feed);
    mRoom.feed.add(speech::noise(5, 3000));
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&, i] {
            for (int round = 0; round < 200; ++round) {
                i % 2 == 0 ? mRoom.ctx->StartListening() : mRoom.ctx->CancelListening();
                mRoom.ctx->IsListening();
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    mRoom.ctx.reset();
    EXPECT_EQ(mRoom.feed.starts, mRoom.feed.stops);
    EXPECT_GE(mRoom.witness.cancels, mRoom.feed.starts);
    EXPECT_THAT(mRoom.witness.errors, testing::IsEmpty());
}

}  // namespace

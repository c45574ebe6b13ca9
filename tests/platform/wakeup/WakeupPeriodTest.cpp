// SPDX-License-Identifier: Apache-2.0
// How a listening period begins and ends, and on which thread the listener is called.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>

#include "EngineHarness.h"

namespace {

using speech::join;
using speech::say;
using speech::silence;

class AListeningPeriod : public testing::Test {
protected:
    AListeningPeriod() { mLoaded = mEngine.load("ENU", "quorbit"); }
    void SetUp() override { ASSERT_TRUE(mLoaded); }

    static speech::Samples wakeWord() { return join({silence(1), say("awb", "hey quorbit"), silence(0.5)}); }

    EngineHarness mEngine;
    bool mLoaded;
};

TEST_F(AListeningPeriod, EndsBeforeTheListenerIsCalledOnTheEnginesThread) {
    bool listening = true;
    int stops = 0;
    mEngine.listener.onWakeup = [&, ctx = mEngine.ctx.get()] {
        listening = ctx->IsListening();
        stops = mEngine.feed.stops;
    };
    mEngine.feed.add(wakeWord());
    mEngine.listen();
    ASSERT_TRUE(mEngine.listener.waitForWakeups(1));
    mEngine.ctx.reset();
    EXPECT_FALSE(listening);
    EXPECT_EQ(stops, 1);
    EXPECT_NE(mEngine.listener.wakeups[0].thread, std::this_thread::get_id());
    EXPECT_EQ(mEngine.listener.cancels, 0);
}

TEST_F(AListeningPeriod, DoesNotStartAgainByItselfAfterADetection) {
    mEngine.feed.add(join({wakeWord(), wakeWord()}));
    mEngine.listen();
    ASSERT_TRUE(mEngine.listener.waitForWakeups(1));
    EXPECT_GT(mEngine.feed.queued(), 60U);
    mEngine.ctx->StartListening();
    EXPECT_TRUE(mEngine.listener.waitForWakeups(2));
}

TEST_F(AListeningPeriod, StartedByTheListenerForgetsTheWakeWordBefore) {
    mEngine.listener.onWakeup = [ctx = mEngine.ctx.get()] { ctx->StartListening(); };
    mEngine.feed.add(join({wakeWord(), silence(2)}));
    mEngine.listen();
    ASSERT_TRUE(mEngine.feed.waitUntilEmpty());
    EXPECT_EQ(mEngine.listener.wakeups.size(), 1U);
    EXPECT_TRUE(mEngine.ctx->IsListening());
    mEngine.feed.add(wakeWord());
    EXPECT_TRUE(mEngine.listener.waitForWakeups(2));
}

TEST_F(AListeningPeriod, StartedByAnotherThreadDuringTheCallToTheListenerBeginsAfterIt) {
    bool waited = false;
    std::future<void> start;
    mEngine.listener.onWakeup = [&, ctx = mEngine.ctx.get()] {
        if (start.valid()) {
            return;
        }
        start = std::async(std::launch::async, [ctx] { ctx->StartListening(); });
        waited = start.wait_for(std::chrono::milliseconds(100)) == std::future_status::timeout && !ctx->IsListening();
    };
    mEngine.feed.add(wakeWord());
    mEngine.listen();
    ASSERT_TRUE(mEngine.listener.waitForWakeups(1));
    mEngine.feed.add(wakeWord());
    EXPECT_TRUE(mEngine.listener.waitForWakeups(2));
    mEngine.ctx.reset();  // before what its thread uses
    EXPECT_TRUE(waited);
}

TEST_F(AListeningPeriod, ForgetsTheFirstHalfOfAWordFromThePeriodBefore) {
    const speech::Samples whole = wakeWord();
    const auto half = static_cast<long>(16000 + (whole.size() - 24000) / 2);
    mEngine.feed.add({whole.begin(), whole.begin() + half});
    mEngine.listen();
    ASSERT_TRUE(mEngine.feed.waitUntilEmpty());
    mEngine.ctx->CancelListening();
    ASSERT_TRUE(mEngine.listener.waitFor([&] { return mEngine.listener.cancels == 1; }));
    mEngine.ctx->StartListening();
    mEngine.feed.add(join({{whole.begin() + half, whole.end()}, silence(1)}));
    ASSERT_TRUE(mEngine.feed.waitUntilEmpty());
    EXPECT_THAT(mEngine.listener.wakeups, testing::IsEmpty());
}

TEST_F(AListeningPeriod, IsReportedAsCanceledOnce) {
    mEngine.listen();
    ASSERT_TRUE(mEngine.ctx->IsListening());
    mEngine.ctx->CancelListening();
    EXPECT_FALSE(mEngine.ctx->IsListening());
    mEngine.ctx->CancelListening();
    ASSERT_TRUE(mEngine.listener.waitFor([&] { return mEngine.listener.cancels >= 1; }));
    mEngine.ctx.reset();
    EXPECT_EQ(mEngine.listener.cancels, 1);
    EXPECT_EQ(mEngine.feed.starts, mEngine.feed.stops);
}

TEST_F(AListeningPeriod, FollowsImmediatelyAfterACanceledOne) {
    mEngine.listen();
    for (int i = 0; i < 50; ++i) {
        mEngine.ctx->CancelListening();
        mEngine.ctx->StartListening();
        EXPECT_TRUE(mEngine.ctx->IsListening());
    }
    mEngine.feed.add(wakeWord());
    EXPECT_TRUE(mEngine.listener.waitForWakeups(1));
    EXPECT_THAT(mEngine.listener.warnings, testing::IsEmpty());
}

TEST_F(AListeningPeriod, EndsWithTheContextWhichCallsNothingAfterwards) {
    mEngine.feed.add(speech::noise(60, 2000));
    mEngine.listen();
    ASSERT_TRUE(mEngine.feed.waitUntilRead());
    mEngine.ctx.reset();
    mEngine.feed.add(wakeWord());
    const int fetches = mEngine.feed.fetches.load();
    const int cancels = mEngine.listener.cancels;
    EXPECT_EQ(mEngine.feed.starts, mEngine.feed.stops);
    EXPECT_EQ(mEngine.feed.borrowed(), 0);
    // While another engine detects a whole wake word, this one would detect it too if it were still listening.
    EngineHarness other;
    ASSERT_TRUE(other.load("ENU", "quorbit"));
    other.feed.add(wakeWord());
    other.listen();
    ASSERT_TRUE(other.listener.waitForWakeups(1));
    EXPECT_EQ(mEngine.feed.fetches, fetches);
    EXPECT_THAT(mEngine.listener.wakeups, testing::IsEmpty());
    EXPECT_EQ(mEngine.listener.cancels, cancels);
}

TEST_F(AListeningPeriod, DoesNotUseAnAudioInputAfterItIsDetached) {
    auto feed = std::make_unique<Feed>();
    mEngine.ctx->AttachAudioIn(feed.get());
    mEngine.ctx->StartListening();
    mEngine.ctx->AttachAudioIn(nullptr);
    EXPECT_EQ(feed->starts, feed->stops);
    feed.reset();  // the address sanitizer would catch an engine that still reads it
    EXPECT_FALSE(mEngine.ctx->IsListening());
    mEngine.listen();
    mEngine.feed.add(wakeWord());
    EXPECT_TRUE(mEngine.listener.waitForWakeups(1));
}

TEST_F(AListeningPeriod, ReturnsEveryBlock) {
    mEngine.feed.add(join({silence(2), wakeWord()}));
    mEngine.listen();
    ASSERT_TRUE(mEngine.listener.waitForWakeups(1));
    EXPECT_EQ(mEngine.feed.borrowed(), 0);
    EXPECT_EQ(mEngine.feed.foreignBlocks, 0);
}

TEST_F(AListeningPeriod, WithAnEmptyFeedAsksForBlocksButFetchesNone) {
    mEngine.listen();
    mEngine.feed.add(silence(0.1));
    ASSERT_TRUE(mEngine.feed.waitUntilEmpty());
    const int fetches = mEngine.feed.fetches;
    ASSERT_TRUE(mEngine.feed.waitForPolls(mEngine.feed.polls + 20));
    EXPECT_EQ(mEngine.feed.fetches, fetches);
}

TEST_F(AListeningPeriod, MayBeStartedAndCanceledByManyThreads) {
    mEngine.ctx->AttachAudioIn(&mEngine.feed);
    mEngine.feed.add(speech::noise(5, 3000));
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&, i] {
            for (int round = 0; round < 200; ++round) {
                i % 2 == 0 ? mEngine.ctx->StartListening() : mEngine.ctx->CancelListening();
                mEngine.ctx->IsListening();
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    mEngine.ctx.reset();
    EXPECT_EQ(mEngine.feed.starts, mEngine.feed.stops);
    EXPECT_GE(mEngine.listener.cancels, mEngine.feed.starts);
    EXPECT_THAT(mEngine.listener.errors, testing::IsEmpty());
}

}  // namespace

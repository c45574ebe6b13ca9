// SPDX-License-Identifier: Apache-2.0
#include "recorder/RecorderFixture.h"

using CaptureTest = PlatformTest;

template <typename Recorder>
class CaptureOfBothRecordersTest : public PlatformTest {};
TYPED_TEST_SUITE(CaptureOfBothRecordersTest, BothRecorders);

TYPED_TEST(CaptureOfBothRecordersTest, EachEnabledListenerReceivesACopyAndTheOthersNothing) {
    CountingListener first;
    CountingListener disabled;
    CountingListener second;
    first.setEnabled(true);
    second.setEnabled(true);
    TypeParam recorder;
    recorder.addListener(&first);
    recorder.addListener(nullptr);
    recorder.addListener(&disabled);
    recorder.addListener(&second);
    fake::queueSamples(std::vector<short>(256, 1234));
    recorder.startRecord();
    ASSERT_TRUE(fake::platform().waitUntil([&] { return first.blocks > 0 && second.blocks > 0; }));
    recorder.clearListener();
    recorder.stopRecord();
    EXPECT_EQ(disabled.blocks, 0);
    EXPECT_EQ(first.blockSize, 512);
    EXPECT_NE(first.block, second.block) << "each has its own copy";
    EXPECT_LT(first.turn, second.turn) << "in the order of addListener";
    EXPECT_EQ(first.first, 1234);
    EXPECT_EQ(second.first, 1234);
}

TYPED_TEST(CaptureOfBothRecordersTest, AFailedReadResetsTheDeviceInOrderAndTheSameThreadContinues) {
    CountingListener listener;
    listener.setEnabled(true);
    TypeParam recorder;
    recorder.addListener(&listener);
    fake::platform().forgetCalls();
    fake::queueReadResult(-802);
    recorder.startRecord();
    ASSERT_TRUE(fake::platform().waitUntil([&] { return listener.blocks > 0; }));
    const bool original = std::is_same<TypeParam, SRecorderOriginal>::value;
    EXPECT_EQ(deviceCalls(),
              original ? joined({{"audio_in_unprepare()"},
                                 FOCUS_RELEASED,
                                 {"audio_in_destroy()", "audio_in_create(16000, 1, 2)"},
                                 FOCUS_ACQUIRED,
                                 {"audio_in_set_sound_stream_info()", "audio_in_prepare()"}})
                       : joined({{"sse_unprepare()"},
                                 FOCUS_RELEASED,
                                 {"sse_deinit()", "sse_destroy()", "sse_create(16000, 2, 2, 256)", "sse_init()"},
                                 FOCUS_ACQUIRED,
                                 {"sse_set_stream_info()", "sse_prepare()"}}));
    recorder.stopRecord();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, original ? "audio_read fail : -802" : "sse_read fail : -802"));
    const auto reads = fake::platform().calls(original ? "audio_in_read" : "sse_read");
    EXPECT_EQ(reads.front().thread, reads.back().thread);
    EXPECT_EQ(reads.front().args[0], original ? "1024" : "256");
}

TEST_F(CaptureTest, AnyResultOfTheCaptureLibraryExceptZeroIsAFailedRead) {
    CountingListener listener;
    listener.setEnabled(true);
    SRecorderSSE recorder;
    recorder.addListener(&listener);
    fake::platform().forgetCalls();
    fake::queueReadResult(3);
    recorder.startRecord();
    ASSERT_TRUE(fake::platform().waitUntil([&] { return listener.blocks > 0; }));
    recorder.stopRecord();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "sse_read fail : 3"));
    EXPECT_EQ(fake::platform().count("sse_prepare"), 1u);
}

TYPED_TEST(CaptureOfBothRecordersTest, AnUnpreparedRecorderReadsNothing) {
    std::atomic<int> pauses{0};
    fake::mainLoop().onSleep([&](unsigned microseconds) {
        EXPECT_EQ(microseconds, 1000u);
        ++pauses;
    });
    TypeParam recorder;
    recorder._audio_unprepare();
    fake::platform().forgetCalls();
    recorder.startRecord();
    ASSERT_TRUE(fake::platform().waitUntil([&] { return pauses > 2; }));
    recorder.stopRecord();
    EXPECT_EQ(fake::platform().count("audio_in_read") + fake::platform().count("sse_read"), 0u);
    EXPECT_TRUE(fake::platform().logged(DLOG_INFO, "_audio_record finish"));
}

TEST_F(CaptureTest, AnEmptyReadSetsTheLevelToMinusSixtyAndPausesAMillisecond) {
    std::atomic<unsigned> paused{0};
    fake::queueSamples(std::vector<short>(256, 16384));
    fake::queueReadResult(0);
    SRecorderOriginal recorder;
    EXPECT_EQ(recorder.getVolume(), -60.0f);
    std::vector<float> levels;  // before each read, and at the pause
    fake::platform().onCall("audio_in_read", [&](const fake::Call&) {
        if (paused == 0) {
            levels.push_back(recorder.getVolume());
        }
    });
    fake::mainLoop().onSleep([&](unsigned microseconds) {
        if (paused == 0) {
            levels.push_back(recorder.getVolume());
            paused = microseconds;
        }
    });
    recorder.startRecord();
    EXPECT_TRUE(fake::platform().waitUntil([&] { return paused > 0; }));
    recorder.stopRecord();
    fake::platform().onCall("audio_in_read", nullptr);
    ASSERT_EQ(levels.size(), 3u);
    EXPECT_NEAR(levels[1], -6.02, 0.01);
    EXPECT_EQ(levels[2], -60.0f);
    EXPECT_EQ(paused, 1000u);
}

TYPED_TEST(CaptureOfBothRecordersTest, AFailedReadSetsTheLevelToMinusSixtyAndPausesAMillisecond) {
    std::atomic<unsigned> paused{0};
    fake::queueSamples(std::vector<short>(256, 16384));
    fake::queueReadResult(-802);
    TypeParam recorder;
    float level = 0;
    fake::mainLoop().onSleep([&](unsigned microseconds) {
        if (paused == 0) {
            level = recorder.getVolume();
            paused = microseconds;
        }
    });
    recorder.startRecord();
    EXPECT_TRUE(fake::platform().waitUntil([&] { return paused > 0; }));
    recorder.stopRecord();
    EXPECT_EQ(level, -60.0f);
    EXPECT_EQ(paused, 1000u);
}

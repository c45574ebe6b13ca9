// SPDX-License-Identifier: Apache-2.0
#include <array>
#include <future>

#include "recorder/RecorderFixture.h"

using ReadThreadTest = PlatformTest;

template <typename Recorder>
class ReadThreadOfBothRecordersTest : public PlatformTest {};
TYPED_TEST_SUITE(ReadThreadOfBothRecordersTest, BothRecorders);

TYPED_TEST(ReadThreadOfBothRecordersTest, DestructionEndsTheReadThreadBeforeItStopsTheDevice) {
    const bool original = std::is_same<TypeParam, SRecorderOriginal>::value;
    bool finished = false;
    fake::platform().onCall(original ? "audio_in_unprepare" : "sse_unprepare", [&](const fake::Call&) {
        finished = fake::platform().logged(DLOG_INFO, "_audio_record finish");
    });
    {
        TypeParam recorder;
        recorder.startRecord();
        ASSERT_TRUE(fake::platform().waitFor(original ? "audio_in_read" : "sse_read"));
    }
    EXPECT_TRUE(finished);
}

TYPED_TEST(ReadThreadOfBothRecordersTest, ASecondStartWhileTheRecorderRecordsDoesNothing) {
    TypeParam recorder;
    recorder.startRecord();
    ASSERT_TRUE(fake::platform().waitUntil(
        [] { return fake::platform().count("audio_in_read") + fake::platform().count("sse_read") > 1; }));
    recorder.startRecord();
    recorder.stopRecord();
    EXPECT_EQ(fake::platform().countLogged("Read Thread Start"), 1u);
}

namespace {

// Two starts close together: both threads wait before they set the recording flag.
void startTwoThreads(SRecorder& recorder) {
    std::atomic<int> starting{0};
    std::atomic<int> held{0};
    fake::platform().onLog([&](const fake::LogLine& line) {
        if (line.message == "Read Thread Start") {
            ++starting;
            fake::platform().waitUntil([&] { return starting == 2; });
            ++held;
        }
    });
    recorder.startRecord();
    recorder.startRecord();
    EXPECT_TRUE(fake::platform().waitUntil([&] { return held == 2; }));
    fake::platform().onLog(nullptr);
}

}  // namespace

TYPED_TEST(ReadThreadOfBothRecordersTest, TwoStartsCloseTogetherStartTwoThreadsAndAStopEndsBoth) {
    TypeParam recorder;
    startTwoThreads(recorder);
    recorder.stopRecord();
    EXPECT_EQ(fake::platform().countLogged("_audio_record finish"), 2u);
}

TYPED_TEST(ReadThreadOfBothRecordersTest, TwoThreadsNeverUseTheDeviceAtOnce) {
    std::atomic<int> inside{0};
    std::atomic<int> most{0};
    std::atomic<int> uses{0};
    const auto use = [&](const fake::Call&) {
        most = std::max<int>(most, ++inside);
        if (++uses < 4) {
            fake::platform().waitUntil([&] { return inside > 1; }, std::chrono::milliseconds(50));
        }
        --inside;
    };
    const std::array<const char*, 4> calls{"audio_in_read", "sse_read", "audio_in_destroy", "sse_destroy"};
    for (const char* call : calls) {
        fake::platform().onCall(call, use);
    }
    TypeParam recorder;
    fake::queueReadResult(-802);
    startTwoThreads(recorder);
    EXPECT_TRUE(fake::platform().waitUntil([&] { return uses > 6; }));
    recorder.stopRecord();
    for (const char* call : calls) {
        fake::platform().onCall(call, nullptr);
    }
    EXPECT_EQ(most, 1);
}

namespace {

template <typename Recorder>
struct Exposed : Recorder {
    using Recorder::isRecording;
};

}  // namespace

TYPED_TEST(ReadThreadOfBothRecordersTest, AStartDuringAStopDoesNotKeepTheStoppedThreadRunning) {
    const char* read = std::is_same<TypeParam, SRecorderOriginal>::value ? "audio_in_read" : "sse_read";
    std::atomic<bool> reading{false};
    std::atomic<bool> goOn{false};
    fake::platform().onCall(read, [&](const fake::Call&) {
        if (!reading.exchange(true)) {
            fake::platform().waitUntil([&] { return goOn.load(); });
        }
    });
    Exposed<TypeParam> recorder;
    recorder.startRecord();
    ASSERT_TRUE(fake::platform().waitUntil([&] { return reading.load(); }));
    auto stop = std::async(std::launch::async, [&] { recorder.stopRecord(); });
    ASSERT_TRUE(fake::platform().waitUntil([&] { return !recorder.isRecording(); }));
    recorder.startRecord();
    ASSERT_TRUE(fake::platform().waitUntil([&] { return recorder.isRecording(); }));
    goOn = true;
    ASSERT_EQ(stop.wait_for(std::chrono::seconds(20)), std::future_status::ready);
    EXPECT_TRUE(recorder.isRecording()) << "the new thread continues";
    recorder.stopRecord();
    fake::platform().onCall(read, nullptr);
    EXPECT_EQ(fake::platform().countLogged("_audio_record finish"), 2u);
}

TYPED_TEST(ReadThreadOfBothRecordersTest, AStopRightAfterAStartEndsTheThread) {
    TypeParam recorder;
    for (int i = 0; i < 20; ++i) {
        recorder.startRecord();
        recorder.startRecord();
        recorder.stopRecord();
    }
    EXPECT_EQ(fake::platform().countLogged("Read Thread Start"), fake::platform().countLogged("_audio_record finish"));
}

TYPED_TEST(ReadThreadOfBothRecordersTest, AStopWithoutAThreadDoesNothing) {
    TypeParam recorder;
    fake::platform().forgetCalls();
    recorder.stopRecord();
    EXPECT_TRUE(fake::platform().calls().empty());
}

namespace {

// Its capture ends by itself at once.
class ShortRecorder : public SRecorder {
public:
    int _audio_init() override { return 0; }
    int _audio_prepare() override { return 0; }
    void _audio_record(const StopFlag&) override { ++captures; }
    int _audio_unprepare() override { return 0; }
    int _audio_deinit() override { return 0; }
    using SRecorder::isRecording;
    std::atomic<int> captures{0};
};

}  // namespace

TEST_F(ReadThreadTest, ACaptureThatEndsByItselfCanBeStartedAgain) {
    ShortRecorder recorder;
    for (int start = 1; start <= 3; ++start) {
        recorder.startRecord();
        ASSERT_TRUE(fake::platform().waitUntil([&] { return recorder.captures == start && !recorder.isRecording(); }));
    }
    recorder.stopRecord();
}

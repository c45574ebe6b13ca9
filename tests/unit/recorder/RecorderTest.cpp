// SPDX-License-Identifier: Apache-2.0
#include <math.h>
#include <string.h>

#include <array>
#include <atomic>
#include <future>

#include "Controller/SRecorderOriginal.h"
#include "Controller/SRecorderSSE.h"
#include "fake/FakeSound.h"
#include "unit/Fixture.h"

using OrvaneDA::SRecorder;
using OrvaneDA::SRecorderOriginal;
using OrvaneDA::SRecorderSSE;

namespace {

class Counter : public OrvaneDA::SRecordListener {
public:
    Counter() : SRecordListener(0) {}
    void implDataHandled(char* data, int size) override {
        if (blocks == 0) {
            memcpy(&first, data, 2);
            block.reset(data);
            turn = ++turns;
        } else {
            delete[] data;
        }
        blockSize = size;
        ++blocks;
    }
    std::unique_ptr<char[]> block;  // the first, kept
    int turn = 0;                   // when it came
    static inline int turns = 0;
    std::atomic<int> blocks{0};
    std::atomic<int> blockSize{0};
    short first = 0;  // sample of the first block
};

Texts deviceCalls() {
    return fake::platform().textsOf({"audio_in_c", "audio_in_d", "audio_in_p", "audio_in_s", "audio_in_u", "sse_c",
                                     "sse_d", "sse_i", "sse_p", "sse_s", "sse_u", "sound_"});
}

const Texts GOT_FOCUS = {"sound_manager_get_focus_state(null, recording)", "sound_manager_acquire_focus(2, 0, (null))"};
const Texts LEFT_FOCUS = {"sound_manager_get_focus_state(null, recording)",
                          "sound_manager_release_focus(2, 0, (null))"};

Texts joined(std::initializer_list<Texts> parts) {
    Texts all;
    for (const Texts& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

float decibel(std::vector<short> samples) {
    return SRecorder::_get_volume_decibel(reinterpret_cast<char*>(samples.data()),
                                          static_cast<int>(samples.size() * 2));
}

}  // namespace

using RecorderTest = PlatformTest;

TEST_F(RecorderTest, LevelsAreDecibelsOfFullScale) {
    EXPECT_NEAR(decibel({16384, 0}), -6.02, 0.01);
    EXPECT_EQ(decibel({0, 0, 0, 0}), -INFINITY);
    char nothing = 0;
    EXPECT_EQ(SRecorder::_get_volume_decibel(&nothing, 0), -INFINITY);
}

TEST_F(RecorderTest, OnlyEverySecondSampleCountsForTheLevel) {
    EXPECT_EQ(decibel({0, 30000, 0, -30000}), -INFINITY);
    EXPECT_NEAR(decibel({8192, 0, -8192, 0}), -12.04, 0.01);
    EXPECT_NEAR(decibel({16384, 0, 0}), 20 * log10(0.5 / sqrt(2)), 0.01);
}

TEST_F(RecorderTest, ANewCaptureLibraryRecorderIsPreparedAndHoldsTheFocus) {
    { SRecorderSSE recorder; }
    EXPECT_EQ(deviceCalls(),
              joined({{"sound_manager_create_stream_information(6)", "sound_manager_set_focus_reacquisition(1)",
                       "sse_create(16000, 2, 2, 256)", "sse_init()"},
                      GOT_FOCUS,
                      {"sse_set_stream_info()", "sse_prepare()", "sse_unprepare()"},
                      LEFT_FOCUS,
                      {"sse_deinit()", "sse_destroy()", "sound_manager_destroy_stream_information()"}}));
}

TEST_F(RecorderTest, ANewAudioInputRecorderIsPreparedAndHoldsTheFocus) {
    { SRecorderOriginal recorder; }
    EXPECT_EQ(deviceCalls(), joined({{"sound_manager_create_stream_information(6)",
                                      "sound_manager_set_focus_reacquisition(1)", "audio_in_create(16000, 1, 2)"},
                                     GOT_FOCUS,
                                     {"audio_in_set_sound_stream_info()", "audio_in_prepare()", "audio_in_unprepare()"},
                                     LEFT_FOCUS,
                                     {"audio_in_destroy()", "sound_manager_destroy_stream_information()"}}));
    EXPECT_TRUE(fake::platform().logged(DLOG_INFO, "audio_in_create"));
    EXPECT_TRUE(fake::platform().logged(DLOG_INFO, "audio_in_prepare"));
    EXPECT_TRUE(fake::platform().logged(DLOG_INFO, "audio_unprepare"));
    EXPECT_TRUE(fake::platform().logged(DLOG_INFO, "audio_in_destroy"));
}

TEST_F(RecorderTest, FailuresOfTheStreamInformationAreLoggedAndConstructionGoesOn) {
    fake::platform().answer("sound_manager_create_stream_information", -12);
    fake::platform().answer("sound_manager_set_focus_reacquisition", -22);
    fake::platform().answer("sound_manager_destroy_stream_information", -3);
    { SRecorderSSE recorder; }
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[ERROR] Fail to create stream information : -12"));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[ERROR] Fail to set focus reacquisition : -22"));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[ERROR] Fail to destroy stream information : -3"));
    EXPECT_EQ(fake::platform().count("sse_prepare"), 1u);
}

TEST_F(RecorderTest, AnAudioInputThatCannotBeDestroyedIsForgottenAllTheSame) {
    SRecorderOriginal recorder;
    recorder._audio_unprepare();
    fake::platform().answer("audio_in_destroy", -7);
    EXPECT_EQ(recorder._audio_deinit(), -7);
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[Recorder ERROR] Fail to destroy audio handle: -7"));
    recorder._audio_deinit();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Already deinitialized"));
}

TEST_F(RecorderTest, AnAudioInputThatCannotBeCreatedLeavesTheRecorderUninitialised) {
    fake::platform().answer("audio_in_create", -8);
    SRecorderOriginal recorder;
    EXPECT_EQ(recorder._audio_init(), -8);
    EXPECT_EQ(fake::platform().countLogged("[SRecorder ERROR] Fail to create audio handle : -8"), 2u);
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Init before prepare"));
}

TEST_F(RecorderTest, ACaptureLibraryThatFailsToOpenCountsAsInitialisedAllTheSame) {
    fake::platform().answer("sse_create", -8);
    SRecorderSSE recorder;
    EXPECT_EQ(fake::platform().count("sse_init"), 1u);
    EXPECT_EQ(fake::platform().count("sse_prepare"), 1u);
}

TEST_F(RecorderTest, AFocusThatCannotBeReleasedIsLogged) {
    SRecorderSSE recorder;
    fake::platform().answer("sound_manager_release_focus", -9);
    recorder._audio_unprepare();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[Recorder ERROR] Fail to release focus :-9"));
}

template <typename Recorder>
class EitherRecorder : public PlatformTest {};
using Recorders = testing::Types<SRecorderOriginal, SRecorderSSE>;
TYPED_TEST_SUITE(EitherRecorder, Recorders);

TYPED_TEST(EitherRecorder, ASecondInitAndASecondPrepareAreErrorsWithoutADeviceCall) {
    TypeParam recorder;
    fake::platform().forgetCalls();
    recorder._audio_init();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Already initialized"));
    recorder._audio_prepare();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Already prepared"));
    EXPECT_TRUE(deviceCalls().empty());
}

TYPED_TEST(EitherRecorder, PreparingBeforeTheInitIsAnErrorAndLeavesItUninitialised) {
    TypeParam recorder;
    recorder._audio_unprepare();
    recorder._audio_deinit();
    fake::platform().forgetCalls();
    recorder._audio_prepare();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Init before prepare"));
    EXPECT_TRUE(deviceCalls().empty());
    recorder._audio_init();
    EXPECT_EQ(fake::platform().countLogged("Already initialized"), 0u);
}

TYPED_TEST(EitherRecorder, DeinitWhilePreparedIsAnErrorAndLeavesItPrepared) {
    TypeParam recorder;
    fake::platform().forgetCalls();
    recorder._audio_deinit();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Unprepare before deinit"));
    recorder._audio_prepare();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Already prepared"));
    EXPECT_TRUE(deviceCalls().empty());
}

TYPED_TEST(EitherRecorder, ASecondUnprepareOnlySaysSo) {
    TypeParam recorder;
    const std::string entry = std::is_same<TypeParam, SRecorderOriginal>::value ? "audio_unprepare" : "";
    recorder._audio_unprepare();
    fake::platform().forgetCalls();
    recorder._audio_unprepare();
    EXPECT_EQ(fake::platform().story(), (Texts{"log: " + entry, "log: Already unprepared"}));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Already unprepared"));
}

TYPED_TEST(EitherRecorder, ASecondDeinitIsAnErrorWithoutADeviceCall) {
    TypeParam recorder;
    recorder._audio_unprepare();
    recorder._audio_deinit();
    fake::platform().forgetCalls();
    recorder._audio_deinit();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Already deinitialized"));
    EXPECT_TRUE(deviceCalls().empty());
}

TYPED_TEST(EitherRecorder, AFailedStartReturnsItsCodeAndLeavesItUnprepared) {
    TypeParam recorder;
    const bool original = std::is_same<TypeParam, SRecorderOriginal>::value;
    recorder._audio_unprepare();
    fake::platform().answerNext(original ? "audio_in_prepare" : "sse_prepare", -6);
    EXPECT_EQ(recorder._audio_prepare(), -6);
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[Recorder ERROR] Fail to start audio : -6"));
    EXPECT_EQ(recorder._audio_prepare(), 0);
    EXPECT_EQ(fake::platform().countLogged("Already prepared"), 0u);
}

TYPED_TEST(EitherRecorder, AFailedStopReleasesTheFocusAndLeavesItUnpreparedAllTheSame) {
    TypeParam recorder;
    const bool original = std::is_same<TypeParam, SRecorderOriginal>::value;
    fake::platform().answer(original ? "audio_in_unprepare" : "sse_unprepare", -5);
    fake::platform().forgetCalls();
    EXPECT_EQ(recorder._audio_unprepare(), -5);
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[Recorder ERROR] Fail to stop audio : -5"));
    EXPECT_EQ(fake::platform().count("sound_manager_release_focus"), 1u);
    recorder._audio_unprepare();
    EXPECT_EQ(fake::platform().countLogged("Already unprepared"), 1u);
}

TYPED_TEST(EitherRecorder, AFocusStateThatCannotBeReadIsLoggedAndCountsAsNotHeld) {
    TypeParam recorder;
    fake::platform().answer("sound_manager_get_focus_state", -4);
    fake::platform().forgetCalls();
    recorder._audio_unprepare();
    EXPECT_EQ(fake::platform().count("sound_manager_release_focus"), 0u);
    recorder._audio_prepare();
    EXPECT_EQ(fake::platform().count("sound_manager_acquire_focus"), 1u);
    EXPECT_EQ(fake::platform().countLogged("[Recorder ERROR] Fail to get focus state : -4"), 2u);
}

TYPED_TEST(EitherRecorder, LogsAFailureOfTheFocusForTheOperationThatNeedsIt) {
    TypeParam recorder;
    fake::platform().answer("sound_manager_get_focus_state", -4);
    for (const char* operation : {"_audio_unprepare", "_audio_prepare"}) {
        fake::platform().forgetCalls();
        operation == std::string("_audio_prepare") ? recorder._audio_prepare() : recorder._audio_unprepare();
        const auto lines = fake::platform().logs();
        const auto failure = std::find_if(lines.begin(), lines.end(),
                                          [](const fake::LogLine& line) { return line.priority == DLOG_ERROR; });
        ASSERT_NE(failure, lines.end());
        EXPECT_NE(failure->text.find(std::string(": ") + operation + "("), std::string::npos) << failure->text;
    }
}

TYPED_TEST(EitherRecorder, AFocusThatIsHeldIsNotAcquiredOrBoundAgain) {
    fake::setFocus(SOUND_STREAM_FOCUS_STATE_ACQUIRED);
    TypeParam recorder;
    EXPECT_EQ(fake::platform().count("sound_manager_acquire_focus"), 0u);
    EXPECT_EQ(fake::platform().count("sse_set_stream_info"), 0u);
    EXPECT_EQ(fake::platform().count("audio_in_set_sound_stream_info"), 0u);
    EXPECT_EQ(fake::platform().count("sse_prepare") + fake::platform().count("audio_in_prepare"), 1u);
}

TYPED_TEST(EitherRecorder, WithoutTheFocusTheDeviceIsStartedAllTheSame) {
    fake::platform().answer("sound_manager_acquire_focus", -702);
    TypeParam recorder;
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[Recorder ERROR] Fail to acquire focus : -702"));
    EXPECT_EQ(fake::platform().count("sse_set_stream_info"), 0u);
    EXPECT_EQ(fake::platform().count("audio_in_set_sound_stream_info"), 0u);
    EXPECT_EQ(fake::platform().count("sse_prepare") + fake::platform().count("audio_in_prepare"), 1u);
}

TYPED_TEST(EitherRecorder, AStreamThatCannotBeBoundIsLoggedAndTheDeviceStarted) {
    fake::platform().answer("sse_set_stream_info", -1);
    fake::platform().answer("audio_in_set_sound_stream_info", -1);
    TypeParam recorder;
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[Recorder ERROR] Fail to set stream info"));
    EXPECT_EQ(fake::platform().count("sse_prepare") + fake::platform().count("audio_in_prepare"), 1u);
}

TYPED_TEST(EitherRecorder, DestructionStopsCaptureBeforeTheDevice) {
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

TYPED_TEST(EitherRecorder, HandsEachEnabledListenerACopyAndTheOthersNothing) {
    Counter first;
    Counter disabled;
    Counter second;
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
    EXPECT_NE(first.block, second.block) << "each its own copy";
    EXPECT_LT(first.turn, second.turn) << "in the order added";
    EXPECT_EQ(first.first, 1234);
    EXPECT_EQ(second.first, 1234);
}

TYPED_TEST(EitherRecorder, AFailedReadResetsTheDeviceInOrderAndCaptureGoesOnOnTheSameThread) {
    Counter listener;
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
                                 LEFT_FOCUS,
                                 {"audio_in_destroy()", "audio_in_create(16000, 1, 2)"},
                                 GOT_FOCUS,
                                 {"audio_in_set_sound_stream_info()", "audio_in_prepare()"}})
                       : joined({{"sse_unprepare()"},
                                 LEFT_FOCUS,
                                 {"sse_deinit()", "sse_destroy()", "sse_create(16000, 2, 2, 256)", "sse_init()"},
                                 GOT_FOCUS,
                                 {"sse_set_stream_info()", "sse_prepare()"}}));
    recorder.stopRecord();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, original ? "audio_read fail : -802" : "sse_read fail : -802"));
    const auto reads = fake::platform().calls(original ? "audio_in_read" : "sse_read");
    EXPECT_EQ(reads.front().thread, reads.back().thread);
    EXPECT_EQ(reads.front().args[0], original ? "1024" : "256");
}

TEST_F(RecorderTest, AnyResultButZeroIsAFailedReadOfTheCaptureLibrary) {
    Counter listener;
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

TYPED_TEST(EitherRecorder, ReadsNothingWhileItIsNotPrepared) {
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

TYPED_TEST(EitherRecorder, ASecondStartWhileItRecordsDoesNothing) {
    TypeParam recorder;
    recorder.startRecord();
    ASSERT_TRUE(fake::platform().waitUntil(
        [] { return fake::platform().count("audio_in_read") + fake::platform().count("sse_read") > 1; }));
    recorder.startRecord();
    recorder.stopRecord();
    EXPECT_EQ(fake::platform().countLogged("Read Thread Start"), 1u);
}

namespace {

// Two starts close together: the first thread is held back before it counts as recording.
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

TYPED_TEST(EitherRecorder, TwoStartsThatFindNoThreadRecordingYetStartTwoAndAStopEndsBoth) {
    TypeParam recorder;
    startTwoThreads(recorder);
    recorder.stopRecord();
    EXPECT_EQ(fake::platform().countLogged("_audio_record finish"), 2u);
}

TYPED_TEST(EitherRecorder, TwoThreadsNeverUseTheDeviceAtOnce) {
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
struct Open : Recorder {
    using Recorder::isRecording;
};

}  // namespace

TYPED_TEST(EitherRecorder, AStartWhileAStopStillWaitsForItsThreadDoesNotKeepThatThread) {
    const char* read = std::is_same<TypeParam, SRecorderOriginal>::value ? "audio_in_read" : "sse_read";
    std::atomic<bool> reading{false};
    std::atomic<bool> goOn{false};
    fake::platform().onCall(read, [&](const fake::Call&) {
        if (!reading.exchange(true)) {
            fake::platform().waitUntil([&] { return goOn.load(); });
        }
    });
    Open<TypeParam> recorder;
    recorder.startRecord();
    ASSERT_TRUE(fake::platform().waitUntil([&] { return reading.load(); }));
    auto stop = std::async(std::launch::async, [&] { recorder.stopRecord(); });
    ASSERT_TRUE(fake::platform().waitUntil([&] { return !recorder.isRecording(); }));
    recorder.startRecord();
    ASSERT_TRUE(fake::platform().waitUntil([&] { return recorder.isRecording(); }));
    goOn = true;
    ASSERT_EQ(stop.wait_for(std::chrono::seconds(20)), std::future_status::ready);
    EXPECT_TRUE(recorder.isRecording()) << "the new thread goes on";
    recorder.stopRecord();
    fake::platform().onCall(read, nullptr);
    EXPECT_EQ(fake::platform().countLogged("_audio_record finish"), 2u);
}

TYPED_TEST(EitherRecorder, AStopRightAfterAStartEndsTheThread) {
    TypeParam recorder;
    for (int i = 0; i < 20; ++i) {
        recorder.startRecord();
        recorder.startRecord();
        recorder.stopRecord();
    }
    EXPECT_EQ(fake::platform().countLogged("Read Thread Start"), fake::platform().countLogged("_audio_record finish"));
}

TYPED_TEST(EitherRecorder, AStopWithoutAThreadDoesNothing) {
    TypeParam recorder;
    fake::platform().forgetCalls();
    recorder.stopRecord();
    EXPECT_TRUE(fake::platform().calls().empty());
}

namespace {

// A recorder whose capture ends by itself at once.
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

TEST_F(RecorderTest, ACaptureThatEndedByItselfLetsTheNextStartBegin) {
    ShortRecorder recorder;
    for (int start = 1; start <= 3; ++start) {
        recorder.startRecord();
        ASSERT_TRUE(fake::platform().waitUntil([&] { return recorder.captures == start && !recorder.isRecording(); }));
    }
    recorder.stopRecord();
}

TEST_F(RecorderTest, AnEmptyReadSetsTheLevelToMinusSixtyAndPausesAMillisecond) {
    std::atomic<unsigned> paused{0};
    fake::queueSamples(std::vector<short>(256, 16384));
    fake::queueReadResult(0);
    SRecorderOriginal recorder;
    EXPECT_EQ(recorder.getVolume(), -60.0f);
    std::vector<float> levels;  // before each read, then at the pause
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

TYPED_TEST(EitherRecorder, AFailedReadSetsTheLevelToMinusSixtyAndPausesAMillisecond) {
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

TEST_F(RecorderTest, ATriggerShotReachesTheCaptureLibrary) {
    SRecorderSSE recorder;
    recorder.debugTriggerShot(87);
    EXPECT_EQ(fake::platform().textsOf({"sse_trigger"}), Texts{"sse_trigger_wakeup_word_recording(87)"});
}

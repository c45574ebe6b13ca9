#include <math.h>
#include <string.h>

#include <atomic>

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
        std::unique_ptr<char[]> block(data);
        memcpy(&first, data, 2);
        blockSize = size;
        ++blocks;
    }
    std::atomic<int> blocks{0};
    std::atomic<int> blockSize{0};
    short first = 0;
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

TEST_F(RecorderTest, AFocusThatIsHeldIsNotAcquiredOrBoundAgain) {
    fake::setFocus(SOUND_STREAM_FOCUS_STATE_ACQUIRED);
    SRecorderSSE recorder;
    EXPECT_EQ(fake::platform().count("sound_manager_acquire_focus"), 0u);
    EXPECT_EQ(fake::platform().count("sse_set_stream_info"), 0u);
    EXPECT_EQ(fake::platform().count("sse_prepare"), 1u);
}

TEST_F(RecorderTest, WithoutTheFocusTheDeviceIsStartedAllTheSame) {
    fake::platform().answer("sound_manager_acquire_focus", -702);
    SRecorderSSE recorder;
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[Recorder ERROR] Fail to acquire focus : -702"));
    EXPECT_EQ(fake::platform().count("sse_set_stream_info"), 0u);
    EXPECT_EQ(fake::platform().count("sse_prepare"), 1u);
}

TEST_F(RecorderTest, AStreamThatCannotBeBoundIsLoggedAndTheDeviceStarted) {
    fake::platform().answer("sse_set_stream_info", -1);
    SRecorderSSE recorder;
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[Recorder ERROR] Fail to set stream info"));
    EXPECT_EQ(fake::platform().count("sse_prepare"), 1u);
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

TEST_F(RecorderTest, EveryDeviceFailureIsLoggedWithItsCode) {
    SRecorderOriginal recorder;
    fake::platform().answer("sound_manager_get_focus_state", -4);
    fake::platform().answer("audio_in_unprepare", -5);
    recorder._audio_unprepare();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[Recorder ERROR] Fail to stop audio : -5"));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[Recorder ERROR] Fail to get focus state : -4"));
    fake::platform().answer("audio_in_prepare", -6);
    EXPECT_EQ(recorder._audio_prepare(), -6);
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[Recorder ERROR] Fail to start audio : -6"));
    fake::platform().answer("audio_in_destroy", -7);
    recorder._audio_deinit();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[Recorder ERROR] Fail to destroy audio handle: -7"));
    fake::platform().answer("audio_in_create", -8);
    EXPECT_EQ(recorder._audio_init(), -8);
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[SRecorder ERROR] Fail to create audio handle : -8"));
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

TYPED_TEST(EitherRecorder, GuardsItsStatesWithoutADeviceCall) {
    TypeParam recorder;
    fake::platform().forgetCalls();
    recorder._audio_init();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Already initialized"));
    recorder._audio_prepare();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Already prepared"));
    recorder._audio_deinit();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Unprepare before deinit"));
    EXPECT_TRUE(deviceCalls().empty());
    recorder._audio_unprepare();
    fake::platform().forgetCalls();
    recorder._audio_unprepare();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Already unprepared"));
    EXPECT_TRUE(deviceCalls().empty());
    recorder._audio_deinit();
    fake::platform().forgetCalls();
    recorder._audio_deinit();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Already deinitialized"));
    recorder._audio_prepare();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Init before prepare"));
    recorder._audio_unprepare();
    EXPECT_TRUE(deviceCalls().empty());
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

TYPED_TEST(EitherRecorder, ReadsNothingWhileItIsNotPrepared) {
    TypeParam recorder;
    recorder._audio_unprepare();
    fake::platform().forgetCalls();
    recorder.startRecord();
    ASSERT_TRUE(fake::platform().waitUntil([] { return fake::platform().logged(DLOG_INFO, "Read Thread Start"); }));
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

TEST_F(RecorderTest, AnEmptyReadSetsTheLevelToMinusSixty) {
    SRecorderOriginal recorder;
    EXPECT_EQ(recorder.getVolume(), -60.0f);
    fake::queueSamples(std::vector<short>(256, 16384));
    for (int i = 0; i < 200; ++i) {
        fake::queueReadResult(0);
    }
    std::atomic<bool> loud{false};
    std::atomic<bool> empty{false};
    fake::platform().onCall("audio_in_read", [&](const fake::Call&) {
        if (recorder.getVolume() > -10) {
            loud = true;
        }
        if (loud && recorder.getVolume() == -60.0f) {
            empty = true;
        }
    });
    recorder.startRecord();
    EXPECT_TRUE(fake::platform().waitUntil([&] { return empty.load(); }));
    recorder.stopRecord();
    fake::platform().onCall("audio_in_read", nullptr);
}

TEST_F(RecorderTest, ATriggerShotReachesTheCaptureLibrary) {
    SRecorderSSE recorder;
    recorder.debugTriggerShot(87);
    EXPECT_EQ(fake::platform().textsOf({"sse_trigger"}), Texts{"sse_trigger_wakeup_word_recording(87)"});
}

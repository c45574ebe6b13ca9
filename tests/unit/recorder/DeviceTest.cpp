// SPDX-License-Identifier: Apache-2.0
#include "recorder/RecorderFixture.h"

using RecorderTest = PlatformTest;

template <typename Recorder>
class DeviceOfBothRecordersTest : public PlatformTest {};
TYPED_TEST_SUITE(DeviceOfBothRecordersTest, BothRecorders);

TEST_F(RecorderTest, ANewSseRecorderIsPreparedAndHoldsTheFocus) {
    { SRecorderSSE recorder; }
    EXPECT_EQ(deviceCalls(),
              joined({{"sound_manager_create_stream_information(6)", "sound_manager_set_focus_reacquisition(1)",
                       "sse_create(16000, 2, 2, 256)", "sse_init()"},
                      FOCUS_ACQUIRED,
                      {"sse_set_stream_info()", "sse_prepare()", "sse_unprepare()"},
                      FOCUS_RELEASED,
                      {"sse_deinit()", "sse_destroy()", "sound_manager_destroy_stream_information()"}}));
}

TEST_F(RecorderTest, ANewOriginalRecorderIsPreparedAndHoldsTheFocus) {
    { SRecorderOriginal recorder; }
    EXPECT_EQ(deviceCalls(), joined({{"sound_manager_create_stream_information(6)",
                                      "sound_manager_set_focus_reacquisition(1)", "audio_in_create(16000, 1, 2)"},
                                     FOCUS_ACQUIRED,
                                     {"audio_in_set_sound_stream_info()", "audio_in_prepare()", "audio_in_unprepare()"},
                                     FOCUS_RELEASED,
                                     {"audio_in_destroy()", "sound_manager_destroy_stream_information()"}}));
    EXPECT_TRUE(fake::platform().logged(DLOG_INFO, "audio_in_create"));
    EXPECT_TRUE(fake::platform().logged(DLOG_INFO, "audio_in_prepare"));
    EXPECT_TRUE(fake::platform().logged(DLOG_INFO, "audio_unprepare"));
    EXPECT_TRUE(fake::platform().logged(DLOG_INFO, "audio_in_destroy"));
}

TEST_F(RecorderTest, AFailureOfTheStreamInformationIsLoggedAndConstructionContinues) {
    fake::platform().answer("sound_manager_create_stream_information", -12);
    fake::platform().answer("sound_manager_set_focus_reacquisition", -22);
    fake::platform().answer("sound_manager_destroy_stream_information", -3);
    { SRecorderSSE recorder; }
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[ERROR] Fail to create stream information : -12"));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[ERROR] Fail to set focus reacquisition : -22"));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[ERROR] Fail to destroy stream information : -3"));
    EXPECT_EQ(fake::platform().count("sse_prepare"), 1u);
}

TEST_F(RecorderTest, AFailureToDestroyTheAudioInputIsLoggedAndTheRecorderIsNoLongerInitialized) {
    SRecorderOriginal recorder;
    recorder._audio_unprepare();
    fake::platform().answer("audio_in_destroy", -7);
    EXPECT_EQ(recorder._audio_deinit(), -7);
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[Recorder ERROR] Fail to destroy audio handle: -7"));
    recorder._audio_deinit();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Already deinitialized"));
}

TEST_F(RecorderTest, AFailureToCreateTheAudioInputLeavesTheRecorderUninitialized) {
    fake::platform().answer("audio_in_create", -8);
    SRecorderOriginal recorder;
    EXPECT_EQ(recorder._audio_init(), -8);
    EXPECT_EQ(fake::platform().countLogged("[SRecorder ERROR] Fail to create audio handle : -8"), 2u);
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Init before prepare"));
}

TEST_F(RecorderTest, ACaptureLibraryThatFailsToOpenStillCountsAsInitialized) {
    fake::platform().answer("sse_create", -8);
    SRecorderSSE recorder;
    EXPECT_EQ(fake::platform().count("sse_init"), 1u);
    EXPECT_EQ(fake::platform().count("sse_prepare"), 1u);
}

TEST_F(RecorderTest, AFailureToReleaseTheFocusIsLogged) {
    SRecorderSSE recorder;
    fake::platform().answer("sound_manager_release_focus", -9);
    recorder._audio_unprepare();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[Recorder ERROR] Fail to release focus :-9"));
}

TYPED_TEST(DeviceOfBothRecordersTest, ASecondInitAndASecondPrepareAreErrorsAndMakeNoDeviceCall) {
    TypeParam recorder;
    fake::platform().forgetCalls();
    recorder._audio_init();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Already initialized"));
    recorder._audio_prepare();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Already prepared"));
    EXPECT_TRUE(deviceCalls().empty());
}

TYPED_TEST(DeviceOfBothRecordersTest, APrepareBeforeTheInitIsAnErrorAndLeavesTheRecorderUninitialized) {
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

TYPED_TEST(DeviceOfBothRecordersTest, ADeinitWhilePreparedIsAnErrorAndLeavesTheRecorderPrepared) {
    TypeParam recorder;
    fake::platform().forgetCalls();
    recorder._audio_deinit();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Unprepare before deinit"));
    recorder._audio_prepare();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Already prepared"));
    EXPECT_TRUE(deviceCalls().empty());
}

TYPED_TEST(DeviceOfBothRecordersTest, ASecondUnprepareIsOnlyLogged) {
    TypeParam recorder;
    const std::string entry = std::is_same<TypeParam, SRecorderOriginal>::value ? "audio_unprepare" : "";
    recorder._audio_unprepare();
    fake::platform().forgetCalls();
    recorder._audio_unprepare();
    EXPECT_EQ(fake::platform().story(), (Texts{"log: " + entry, "log: Already unprepared"}));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Already unprepared"));
}

TYPED_TEST(DeviceOfBothRecordersTest, ASecondDeinitIsAnErrorAndMakesNoDeviceCall) {
    TypeParam recorder;
    recorder._audio_unprepare();
    recorder._audio_deinit();
    fake::platform().forgetCalls();
    recorder._audio_deinit();
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Already deinitialized"));
    EXPECT_TRUE(deviceCalls().empty());
}

TYPED_TEST(DeviceOfBothRecordersTest, AFailedStartReturnsItsCodeAndLeavesTheRecorderUnprepared) {
    TypeParam recorder;
    const bool original = std::is_same<TypeParam, SRecorderOriginal>::value;
    recorder._audio_unprepare();
    fake::platform().answerNext(original ? "audio_in_prepare" : "sse_prepare", -6);
    EXPECT_EQ(recorder._audio_prepare(), -6);
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[Recorder ERROR] Fail to start audio : -6"));
    EXPECT_EQ(recorder._audio_prepare(), 0);
    EXPECT_EQ(fake::platform().countLogged("Already prepared"), 0u);
}

TYPED_TEST(DeviceOfBothRecordersTest, AFailedStopStillReleasesTheFocusAndLeavesTheRecorderUnprepared) {
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

TYPED_TEST(DeviceOfBothRecordersTest, AFocusStateThatCannotBeReadIsLoggedAndCountsAsNotHeld) {
    TypeParam recorder;
    fake::platform().answer("sound_manager_get_focus_state", -4);
    fake::platform().forgetCalls();
    recorder._audio_unprepare();
    EXPECT_EQ(fake::platform().count("sound_manager_release_focus"), 0u);
    recorder._audio_prepare();
    EXPECT_EQ(fake::platform().count("sound_manager_acquire_focus"), 1u);
    EXPECT_EQ(fake::platform().countLogged("[Recorder ERROR] Fail to get focus state : -4"), 2u);
}

TYPED_TEST(DeviceOfBothRecordersTest, AFailureOfTheFocusIsLoggedForTheOperationThatNeedsIt) {
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

TYPED_TEST(DeviceOfBothRecordersTest, AHeldFocusIsNeitherAcquiredNorBoundAgain) {
    fake::setFocus(SOUND_STREAM_FOCUS_STATE_ACQUIRED);
    TypeParam recorder;
    EXPECT_EQ(fake::platform().count("sound_manager_acquire_focus"), 0u);
    EXPECT_EQ(fake::platform().count("sse_set_stream_info"), 0u);
    EXPECT_EQ(fake::platform().count("audio_in_set_sound_stream_info"), 0u);
    EXPECT_EQ(fake::platform().count("sse_prepare") + fake::platform().count("audio_in_prepare"), 1u);
}

TYPED_TEST(DeviceOfBothRecordersTest, TheDeviceStartsWithoutTheFocus) {
    fake::platform().answer("sound_manager_acquire_focus", -702);
    TypeParam recorder;
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[Recorder ERROR] Fail to acquire focus : -702"));
    EXPECT_EQ(fake::platform().count("sse_set_stream_info"), 0u);
    EXPECT_EQ(fake::platform().count("audio_in_set_sound_stream_info"), 0u);
    EXPECT_EQ(fake::platform().count("sse_prepare") + fake::platform().count("audio_in_prepare"), 1u);
}

TYPED_TEST(DeviceOfBothRecordersTest, AFailureToBindTheStreamIsLoggedAndTheDeviceStarts) {
    fake::platform().answer("sse_set_stream_info", -1);
    fake::platform().answer("audio_in_set_sound_stream_info", -1);
    TypeParam recorder;
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[Recorder ERROR] Fail to set stream info"));
    EXPECT_EQ(fake::platform().count("sse_prepare") + fake::platform().count("audio_in_prepare"), 1u);
}

TEST_F(RecorderTest, ATriggerShotPassesItsLevelToTheCaptureLibrary) {
    SRecorderSSE recorder;
    recorder.debugTriggerShot(87);
    EXPECT_EQ(fake::platform().textsOf({"sse_trigger"}), Texts{"sse_trigger_wakeup_word_recording(87)"});
}

// SPDX-License-Identifier: Apache-2.0
#include "fake/voice/FakeVoice.h"
#include "voice/SystemCommands.h"
#include "voice/VoiceFixture.h"

using OrvaneDA::VoiceControl;
using OrvaneDA::VoiceStartMode;
using RecognitionTest = VoiceTest;

TEST_F(RecognitionTest, AStartMakesItsCallsInOrder) {
    VoiceControl control;
    fake::platform().forgetCalls();
    EXPECT_EQ(control.startRecognition(VoiceStartMode::Default, "7"), 0);
    EXPECT_EQ(fake::platform().texts(),
              (Texts{"vc_mgr_set_private_data(MediaVolume, 7)", "vc_mgr_set_recognition_mode(0)",
                     "vc_mgr_set_command_list(" + SYSTEM_COMMANDS + ")", "vc_mgr_start(0)"}));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Voice Start Mode: Default"));
}

TEST_F(RecognitionTest, PushToTalkLetsThePersonEndTheUtterance) {
    VoiceControl control;
    control.startRecognition(VoiceStartMode::PTT, "");
    EXPECT_EQ(fake::platform().textsOf({"vc_mgr_set_recognition"}), Texts{"vc_mgr_set_recognition_mode(3)"});
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Voice Start Mode: PTT"));
}

TEST_F(RecognitionTest, AStartWithAClearedContextFirstResetsTheServersSession) {
    VoiceControl control;
    fake::platform().forgetCalls();
    control.startRecognition(VoiceStartMode::ClearContext, "3");
    EXPECT_EQ(fake::platform().texts(),
              (Texts{"vc_mgr_set_private_data(Request, resetSession)", "vc_mgr_set_private_data(MediaVolume, 3)",
                     "vc_mgr_set_recognition_mode(0)", "vc_mgr_set_command_list(" + SYSTEM_COMMANDS + ")",
                     "vc_mgr_start(0)"}));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Voice Start Mode: ClearContext"));
}

TEST_F(RecognitionTest, AStartInAnUnknownModeEndsBySilence) {
    VoiceControl control;
    control.startRecognition(VoiceStartMode::Unnamed, "");
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Voice Start Mode: UNKNOWN"));
    EXPECT_EQ(fake::platform().textsOf({"vc_mgr_set_recognition"}), Texts{"vc_mgr_set_recognition_mode(0)"});
}

TEST_F(RecognitionTest, AStartClearsWhatTheLastRecognitionSessionReceivedBeforeItStartsTheEngine) {
    VoiceControl control;
    collectReportsOf(control);
    fake::preResult(VC_PRE_RESULT_EVENT_PARTIAL, "old");
    // Speech may be detected while the start still runs.
    fake::platform().onCall("vc_mgr_start", [](const fake::Call&) { fake::speechDetected(); });
    control.startRecognition(VoiceStartMode::Default, "");
    EXPECT_EQ(sent().size(), 2u) << "the UI is notified once per session";
    const Texts calls = managerCalls();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "ecore_timer_add(10.000000)"), 2);
}

TEST_F(RecognitionTest, FailuresOfStartAndStopAndCancelAreReturnedAndLogged) {
    VoiceControl control;
    fake::platform().answer("vc_mgr_start", VC_ERROR_RECORDER_BUSY);
    fake::platform().answer("vc_mgr_stop", VC_ERROR_INVALID_STATE);
    fake::platform().answer("vc_mgr_cancel", VC_ERROR_INVALID_STATE);
    EXPECT_EQ(control.startRecognition(VoiceStartMode::Default, ""), VC_ERROR_RECORDER_BUSY);
    EXPECT_EQ(control.stopRecognition(true), VC_ERROR_INVALID_STATE);
    EXPECT_EQ(control.cancelRecognition(true, false), VC_ERROR_INVALID_STATE);
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "vc_mgr_start() failed: RECORDER_BUSY"));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[ERROR] Fail to stop"));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[ERROR] Fail to cancel"));
}

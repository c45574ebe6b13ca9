// SPDX-License-Identifier: Apache-2.0
#include "fake/voice/FakeVoice.h"
#include "voice/VoiceFixture.h"

using OrvaneDA::VoiceControl;
using RecognitionTimeoutTest = VoiceTest;

namespace {

constexpr auto READY = VC_SERVICE_STATE_READY;
constexpr auto RECORDING = VC_SERVICE_STATE_RECORDING;
constexpr auto PROCESSING = VC_SERVICE_STATE_PROCESSING;

}  // namespace

TEST_F(RecognitionTimeoutTest, ASecondTimeoutTimerKeepsTheFirst) {
    VoiceControl control;
    control.startTimeOutTimer(5);
    control.startTimeOutTimer(9);
    EXPECT_EQ(fake::mainLoop().timers(), 1u);
    EXPECT_EQ(fake::mainLoop().interval(0), 5);
    control.stopTimeOutTimer();
    control.stopTimeOutTimer();
    EXPECT_EQ(fake::platform().count("ecore_timer_del"), 1u);
}

TEST_F(RecognitionTimeoutTest, ARecordingWithoutSpeechTimesOutWithAnErrorAndIsCanceled) {
    VoiceControl control;
    collectReportsOf(control);
    fake::serviceState(READY, RECORDING);
    fake::mainLoop().advance(6.9);
    EXPECT_EQ(fake::platform().count("vc_mgr_cancel"), 0u);
    fake::platform().onCall("vc_mgr_cancel",
                            [&](const fake::Call&) { EXPECT_EQ(reports.back(), "Error RecordingTimeout"); });
    fake::mainLoop().advance(0.2);
    EXPECT_EQ(fake::platform().count("vc_mgr_cancel"), 1u);
    fake::mainLoop().advance(60);
    EXPECT_EQ(fake::platform().count("vc_mgr_cancel"), 1u) << "the timer fires once";
}

TEST_F(RecognitionTimeoutTest, ARecordingWithSpeechThatTimesOutIsStopped) {
    VoiceControl control;
    collectReportsOf(control);
    fake::serviceState(READY, RECORDING);
    fake::preResult(VC_PRE_RESULT_EVENT_PARTIAL, "open");
    fake::mainLoop().advance(9.9);
    EXPECT_EQ(fake::platform().count("vc_mgr_stop"), 0u);
    fake::mainLoop().advance(0.2);
    EXPECT_EQ(fake::platform().count("vc_mgr_stop"), 1u);
    EXPECT_EQ(fake::platform().count("vc_mgr_cancel"), 0u);
    EXPECT_EQ(reports.back(), "[open]");
}

TEST_F(RecognitionTimeoutTest, ProcessingThatTimesOutReportsAnErrorAndIsCanceled) {
    VoiceControl control;
    collectReportsOf(control);
    fake::serviceState(RECORDING, PROCESSING);
    fake::mainLoop().advance(30.1);
    EXPECT_EQ(reports.back(), "Error ProcessingTimeout");
    EXPECT_EQ(fake::platform().count("vc_mgr_cancel"), 1u);
}

TEST_F(RecognitionTimeoutTest, ATimeoutInAnyOtherStateCancelsWithoutAReport) {
    VoiceControl control;
    collectReportsOf(control);
    control.startTimeOutTimer(1);
    fake::mainLoop().advance(1.1);
    EXPECT_TRUE(reports.empty());
    EXPECT_EQ(fake::platform().count("vc_mgr_cancel"), 1u);
}

TEST_F(RecognitionTimeoutTest, TheHandleOfATimerThatFiredIsDeletedAtTheNextStateChange) {
    VoiceControl control;
    collectReportsOf(control);
    fake::serviceState(READY, RECORDING);
    fake::mainLoop().advance(8);
    fake::serviceState(RECORDING, READY);
    EXPECT_EQ(fake::platform().count("ecore_timer_del"), 1u);
}

// SPDX-License-Identifier: Apache-2.0
#include "fake/voice/FakeVoice.h"
#include "voice/VoiceFixture.h"

using OrvaneDA::VoiceControl;

class PartialResultTest : public VoiceTest {
protected:
    void SetUp() override {
        VoiceTest::SetUp();
        control = std::make_unique<VoiceControl>();
        collectReportsOf(*control);
        control->startRecognition(OrvaneDA::VoiceStartMode::Default, "");
        fake::serviceState(VC_SERVICE_STATE_READY, VC_SERVICE_STATE_RECORDING);
        reports.clear();
    }
    void TearDown() override {
        control.reset();
        VoiceTest::TearDown();
    }
    static Texts notifications() { return sent(); }
    const std::string NOTIFICATION = "org.tizen.orvane-da http://orvane.example/appcontrol/operation/speech_detected -";
    std::unique_ptr<VoiceControl> control;
};

TEST_F(PartialResultTest, TheFirstSignOfSpeechReplacesTheTimeoutOnceAndNotifiesTheUiOnce) {
    EXPECT_EQ(fake::mainLoop().interval(0), 7.0);
    fake::speechDetected();
    EXPECT_EQ(fake::mainLoop().timers(), 1u);
    EXPECT_EQ(fake::mainLoop().interval(0), 10.0);
    fake::mainLoop().advance(4);
    fake::speechDetected();
    fake::preResult(VC_PRE_RESULT_EVENT_PARTIAL, "a");
    EXPECT_EQ(fake::platform().count("ecore_timer_add"), 2u);
    EXPECT_EQ(notifications(), Texts{NOTIFICATION});
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "==== Speech detected ===="));
}

TEST_F(PartialResultTest, APartialResultBeforeTheDetectionNotifiesTheUiAndTheDetectionDoesNothing) {
    fake::preResult(VC_PRE_RESULT_EVENT_PARTIAL, "a");
    EXPECT_EQ(fake::mainLoop().interval(0), 10.0);
    fake::mainLoop().advance(5);
    fake::speechDetected();
    fake::mainLoop().advance(5.1);
    EXPECT_EQ(fake::platform().count("vc_mgr_stop"), 1u) << "the timer keeps running";
    EXPECT_EQ(notifications(), Texts{NOTIFICATION});
}

TEST_F(PartialResultTest, TheTextIsTrimmedAndForwarded) {
    fake::preResult(VC_PRE_RESULT_EVENT_PARTIAL, "  hello\n");
    fake::preResult(VC_PRE_RESULT_EVENT_FINAL, "\t\v hello there\r\n");
    fake::preResult(VC_PRE_RESULT_EVENT_PARTIAL, " \t ");
    EXPECT_EQ(reports, (Texts{"[hello]", "[hello there]!", "[]"}));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "==== Pre result cb ===="));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Result Text -   hello\n"));
}

TEST_F(PartialResultTest, OnlyFiveKindsOfWhitespaceAreTrimmedAndOnlyAtTheEnds) {
    fake::preResult(VC_PRE_RESULT_EVENT_PARTIAL, "\v\fred \t wine\f\r");
    EXPECT_EQ(reports, Texts{"[\fred \t wine\f]"});
}

TEST_F(PartialResultTest, ABlankTextDoesNotCountAsSpeech) {
    fake::preResult(VC_PRE_RESULT_EVENT_PARTIAL, "open");
    fake::preResult(VC_PRE_RESULT_EVENT_PARTIAL, " \r\n");
    fake::mainLoop().advance(10.1);
    EXPECT_EQ(fake::platform().count("vc_mgr_cancel"), 1u);
    EXPECT_EQ(reports.back(), "Error RecordingTimeout");
}

TEST_F(PartialResultTest, AnErrorUpdatesTheTextButForwardsNothing) {
    fake::preResult(VC_PRE_RESULT_EVENT_ERROR, "lost");
    EXPECT_TRUE(reports.empty());
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "error"));
    fake::mainLoop().advance(10.1);
    EXPECT_EQ(fake::platform().count("vc_mgr_stop"), 1u) << "the text counts as speech";
}

TEST_F(PartialResultTest, ANewStartClearsTheTextAndTheDetection) {
    fake::preResult(VC_PRE_RESULT_EVENT_PARTIAL, "old");
    control->startRecognition(OrvaneDA::VoiceStartMode::Default, "");
    fake::serviceState(VC_SERVICE_STATE_READY, VC_SERVICE_STATE_RECORDING);
    fake::speechDetected();
    EXPECT_EQ(notifications(), (Texts{NOTIFICATION, NOTIFICATION}));
    fake::mainLoop().advance(10.1);
    EXPECT_EQ(fake::platform().count("vc_mgr_cancel"), 1u) << "nobody has spoken in this session";
}

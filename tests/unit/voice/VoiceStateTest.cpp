// SPDX-License-Identifier: Apache-2.0
#include "fake/voice/FakeVoice.h"
#include "voice/VoiceFixture.h"

using OrvaneDA::VoiceControl;
using VoiceStateTest = VoiceTest;

namespace {

constexpr auto NONE = VC_SERVICE_STATE_NONE;
constexpr auto READY = VC_SERVICE_STATE_READY;
constexpr auto RECORDING = VC_SERVICE_STATE_RECORDING;
constexpr auto PROCESSING = VC_SERVICE_STATE_PROCESSING;

}  // namespace

TEST_F(VoiceStateTest, EachServiceStateIsReportedAndHasItsTimeout) {
    VoiceControl control;
    collectReportsOf(control);
    fake::serviceState(READY, RECORDING);
    EXPECT_EQ(fake::mainLoop().interval(0), 7.0);
    fake::serviceState(RECORDING, PROCESSING);
    EXPECT_EQ(fake::mainLoop().timers(), 1u);
    EXPECT_EQ(fake::mainLoop().interval(0), 30.0);
    fake::serviceState(PROCESSING, READY);
    EXPECT_EQ(fake::mainLoop().timers(), 0u);
    EXPECT_EQ(reports, (Texts{"recognition Recording", "Recording None", "recognition Processing", "Processing None",
                              "recognition Ready"}));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "==== Service state is changed ===="));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Previous(Recording) -> Current(Processing)"));
}

TEST_F(VoiceStateTest, AChangeOfTheServiceStateActsInOrder) {
    Texts steps;
    VoiceControl control;
    collectReportsOf(control);
    control.setRecognitionStateCallback(
        [&](const OrvaneDA::ClientState&, const OrvaneDA::ErrorType&) { steps.push_back("recognition state"); });
    control.setStateCallback(
        [&](const OrvaneDA::ClientState&, const OrvaneDA::ErrorType&) { steps.push_back("state"); });
    for (const char* call : {"ecore_timer_add", "ecore_timer_del"}) {
        fake::platform().onCall(call, [&](const fake::Call& made) { steps.push_back(made.text()); });
    }
    fake::serviceState(READY, RECORDING);
    EXPECT_EQ(steps, (Texts{"recognition state", "state", "ecore_timer_add(7.000000)"}));
    steps.clear();
    fake::serviceState(RECORDING, PROCESSING);
    EXPECT_EQ(steps, (Texts{"recognition state", "ecore_timer_del()", "state", "ecore_timer_add(30.000000)"}));
}

TEST_F(VoiceStateTest, TheServiceStateNoneMeansIdleAndIsNotReported) {
    VoiceControl control;
    collectReportsOf(control);
    fake::serviceState(READY, NONE);
    EXPECT_EQ(reports, Texts{"recognition Idle"});
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Previous(Ready) -> Current(None)"));
}

TEST_F(VoiceStateTest, AReadyManagerReceivesTheDomainAndThenThePreloadedCommands) {
    VoiceControl control;
    collectReportsOf(control);
    fake::voiceState(VC_STATE_INITIALIZED, VC_STATE_READY);
    const auto calls = fake::platform().calls();
    ASSERT_GE(calls.size(), 2u);
    EXPECT_EQ(calls[0].name, "vc_mgr_set_domain");
    EXPECT_NE(calls[0].args[0].find("Version 1.0"), std::string::npos);
    EXPECT_EQ(calls[0].args[0].find('\n'), std::string::npos);
    EXPECT_EQ(fake::platform().textsOf({"vc_mgr_set_preloaded"}),
              Texts{"vc_mgr_set_preloaded_commands_from_file(/data/voice/data/preloaded_commands.txt)"});
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "==== State is changed ===="));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Previous(Initialized) -> Current(Ready)"));
}

TEST_F(VoiceStateTest, OtherManagerStatesAreOnlyLogged) {
    VoiceControl control;
    collectReportsOf(control);
    fake::voiceState(VC_STATE_NONE, VC_STATE_INITIALIZED);
    fake::voiceState(VC_STATE_READY, static_cast<vc_state_e>(3));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Previous(None) -> Current(Initialized)"));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Previous(Ready) -> Current(UNKNOWN)"));
    EXPECT_TRUE(reports.empty());
    EXPECT_TRUE(fake::platform().calls().empty());
}

TEST_F(VoiceStateTest, ALostEngineIsReportedAndItsServiceStateReplayedAsReady) {
    VoiceControl control;
    collectReportsOf(control);
    fake::serviceState(READY, RECORDING);
    reports.clear();
    fake::voiceState(VC_STATE_READY, VC_STATE_INITIALIZED);
    EXPECT_EQ(reports, (Texts{"Error Default", "recognition Ready"}));
    EXPECT_TRUE(fake::platform().logged(DLOG_WARN, "Re-Prepare Voice Control Engine"));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Previous(Recording) -> Current(Ready)"));
    EXPECT_EQ(fake::platform().count("vc_mgr_prepare"), 0u);
    EXPECT_EQ(fake::mainLoop().timers(), 0u);
}

TEST_F(VoiceStateTest, TheReplayStartsFromTheLastServiceState) {
    const std::pair<vc_service_state_e, const char*> rows[] = {
        {RECORDING, "Recording"}, {PROCESSING, "Processing"}, {READY, "Ready"}, {NONE, "None"}};
    for (const auto& [state, name] : rows) {
        VoiceControl control;
        collectReportsOf(control);
        fake::setVoiceErrorMessage("NLU Exception");
        fake::voiceError(VC_ERROR_OPERATION_FAILED);
        fake::serviceState(NONE, state);
        reports.clear();
        fake::platform().forgetCalls();
        fake::voiceState(VC_STATE_READY, VC_STATE_INITIALIZED);
        EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, std::string("Previous(") + name + ") -> Current(Ready)"));
        Texts expected{"Error Default", "recognition Ready"};
        if (state == RECORDING || state == PROCESSING) {
            expected.push_back("Error ServerCrashed");
        }
        EXPECT_EQ(reports, expected) << name;
    }
}

TEST_F(VoiceStateTest, TheReplayStartsFromNoneWhenTheEngineIsLostFirst) {
    VoiceControl control;
    collectReportsOf(control);
    fake::voiceState(VC_STATE_READY, VC_STATE_INITIALIZED);
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Previous(None) -> Current(Ready)"));
}

TEST_F(VoiceStateTest, ChangesOfTheEnabledSettingAndTheLanguageAreOnlyLogged) {
    VoiceControl control;
    collectReportsOf(control);
    fake::voiceEnabledChanged(false);
    fake::voiceLanguageChanged("en_US", "fr_FR");
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Voice control enabled changed to (0)"));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Language is changed (en_US) to (fr_FR)"));
    EXPECT_TRUE(reports.empty());
    EXPECT_TRUE(fake::platform().calls().empty());
}

TEST_F(VoiceStateTest, CallbacksThatAreNotSetAreSkipped) {
    VoiceControl control;
    fake::serviceState(READY, RECORDING);
    fake::preResult(VC_PRE_RESULT_EVENT_FINAL, "x");
    control.syncAppState(OrvaneDA::ClientState::Error, OrvaneDA::ErrorType::Default);
    fake::mainLoop().advance(11);
    EXPECT_EQ(fake::platform().count("vc_mgr_stop"), 1u);
}

// SPDX-License-Identifier: Apache-2.0
#include "Controller/Voice/VoiceErrors.h"
#include "fake/voice/FakeVoice.h"
#include "voice/SystemCommands.h"
#include "voice/VoiceFixture.h"

using OrvaneDA::VoiceControl;
using OrvaneDA::VoiceStartMode;
using VoiceControlTest = VoiceTest;

namespace {

constexpr auto NONE = VC_SERVICE_STATE_NONE;
constexpr auto READY = VC_SERVICE_STATE_READY;
constexpr auto RECORDING = VC_SERVICE_STATE_RECORDING;
constexpr auto PROCESSING = VC_SERVICE_STATE_PROCESSING;

}  // namespace

TEST_F(VoiceControlTest, InitializationMakesItsCallsInOrder) {
    VoiceControl control;
    Texts calls = fake::platform().textsOf({"vc_setting", "vc_mgr"});
    EXPECT_EQ(calls,
              (Texts{"vc_setting_initialize()", "vc_setting_get_enabled()", "vc_setting_set_enabled_changed_cb()",
                     "vc_setting_get_language()", "vc_setting_set_auto_language(0)", "vc_setting_set_language(en_US)",
                     "vc_mgr_initialize()", "vc_mgr_foreach_supported_languages()", "vc_mgr_set_state_changed_cb()",
                     "vc_mgr_set_service_state_changed_cb()", "vc_mgr_set_all_result_cb()",
                     "vc_mgr_set_pre_result_cb()", "vc_mgr_set_error_cb()", "vc_mgr_set_speech_detected_cb()",
                     "vc_mgr_set_current_language_changed_cb()", "vc_mgr_prepare()"}));
    EXPECT_EQ(fake::platform().textsOf({"vc_"}).at(calls.size()), "vc_cmd_list_create()");
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "vc lang : en_US"));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "supported lang: en_US"));
}

TEST_F(VoiceControlTest, ThePathOfThePreloadedCommandsIsComputedOnceAtTheStart) {
    VoiceControl control;
    fake::platform().onCall("vc_mgr_set_preloaded_commands_from_file",
                            [](const fake::Call&) { EXPECT_EQ(fake::platform().count("tzplatform_mkpath"), 0u); });
    fake::platform().forgetCalls();
    fake::voiceState(VC_STATE_INITIALIZED, VC_STATE_READY);
    EXPECT_EQ(fake::platform().count("vc_mgr_set_preloaded_commands_from_file"), 1u);
}

TEST_F(VoiceControlTest, DestructionMakesItsCallsInOrder) {
    {
        VoiceControl control;
        fake::platform().forgetCalls();
    }
    EXPECT_EQ(
        fake::platform().texts(),
        (Texts{"vc_mgr_unset_command_list()", "vc_cmd_list_destroy(list, 1)", "vc_mgr_unset_state_changed_cb()",
               "vc_mgr_unset_service_state_changed_cb()", "vc_mgr_unset_all_result_cb()",
               "vc_mgr_unset_pre_result_cb()", "vc_mgr_unset_error_cb()", "vc_mgr_unset_speech_detected_cb()",
               "vc_mgr_unset_current_language_changed_cb()", "vc_mgr_deinitialize()", "vc_setting_deinitialize()"}));
    EXPECT_EQ(fake::openCommands(), 0);
}

TEST_F(VoiceControlTest, TheCommandListIsDestroyedOnceWhenDeinitPrecedesTheDestruction) {
    {
        VoiceControl control;
        control.deinitVoiceControl();
    }
    EXPECT_EQ(fake::platform().textsOf({"vc_cmd_list_destroy"}),
              (Texts{"vc_cmd_list_destroy(list, 1)", "vc_cmd_list_destroy(null, 1)"}));
    EXPECT_EQ(fake::openCommandLists(), 0);
}

TEST_F(VoiceControlTest, DestructionDeletesTheTimer) {
    {
        VoiceControl control;
        control.startTimeOutTimer(7);
    }
    EXPECT_EQ(fake::mainLoop().timers(), 0u);
}

TEST_F(VoiceControlTest, AFailedCallOfDeinitIsLoggedWithTheErrorsName) {
    {
        VoiceControl control;
        fake::platform().answer("vc_cmd_list_destroy", VC_ERROR_INVALID_PARAMETER);
        fake::platform().answer("vc_mgr_deinitialize", VC_ERROR_INVALID_STATE);
        fake::platform().answer("vc_setting_deinitialize", VC_ERROR_OPERATION_FAILED);
    }
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "vc_cmd_list_destroy: INVALID_PARAMETER"));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "vc_mgr_deinitialize: INVALID_STATE"));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "vc_setting_deinitialize: OPERATION_FAILED"));
}

struct InitializationFailure {
    const char* call;
    const char* message;
};
// The name that the test list shows.
void PrintTo(const InitializationFailure& row, std::ostream* out) {
    *out << row.call;
}
class AFailedCallOfTheInitialization : public VoiceControlTest,
                                       public testing::WithParamInterface<InitializationFailure> {};

TEST_P(AFailedCallOfTheInitialization, IsLoggedAndEndsTheInitialization) {
    fake::platform().answer(GetParam().call, VC_ERROR_OPERATION_FAILED);
    VoiceControl control;
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, GetParam().message));
    EXPECT_EQ(fake::platform().names().back(), GetParam().call);
}

TEST_F(VoiceControlTest, AFailureIsLoggedUnderItsOperation) {
    const std::pair<const char*, const char*> operations[] = {{"vc_setting_get_enabled", "initVoiceControl"},
                                                              {"vc_mgr_prepare", "initVoiceControl"},
                                                              {"vc_cmd_create", "createCommandList"},
                                                              {"vc_mgr_deinitialize", "deinitVoiceControl"}};
    for (const auto& [call, operation] : operations) {
        fake::platform().reset();
        fake::platform().answer(call, VC_ERROR_OUT_OF_MEMORY);
        { VoiceControl control; }
        const auto lines = fake::platform().logs();
        const auto failure = std::find_if(lines.begin(), lines.end(),
                                          [](const fake::LogLine& line) { return line.priority == DLOG_ERROR; });
        ASSERT_NE(failure, lines.end());
        EXPECT_NE(failure->text.find(std::string("VoiceControl.cpp: ") + operation + "("), std::string::npos)
            << failure->text;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Each, AFailedCallOfTheInitialization,
    testing::Values(
        InitializationFailure{"vc_setting_initialize", "Fail to init"},
        InitializationFailure{"vc_setting_get_enabled", "Fail to get enabled"},
        InitializationFailure{"vc_setting_set_enabled_changed_cb", "Fail to set enabled cb"},
        InitializationFailure{"vc_setting_get_language", "Fail to get language"},
        InitializationFailure{"vc_setting_set_auto_language", "Fail to auto language set false"},
        InitializationFailure{"vc_setting_set_language", "Fail to set language"},
        InitializationFailure{"vc_mgr_initialize", "[ERROR] Fail to initialize"},
        InitializationFailure{"vc_mgr_set_state_changed_cb", "[ERROR] Fail to set state changed cb"},
        InitializationFailure{"vc_mgr_set_service_state_changed_cb", "[ERROR] Fail to set service state changed cb"},
        InitializationFailure{"vc_mgr_set_all_result_cb", "[ERROR] Fail to set all result cb"},
        InitializationFailure{"vc_mgr_set_pre_result_cb", "[ERROR] Fail to set pre result cb"},
        InitializationFailure{"vc_mgr_set_error_cb", "[ERROR] Fail to set error cb"},
        InitializationFailure{"vc_mgr_set_speech_detected_cb", "[ERROR] Fail to set speech detected cb"},
        InitializationFailure{"vc_mgr_set_current_language_changed_cb", "[ERROR] Fail to set language changed cb"},
        InitializationFailure{"vc_mgr_prepare", "[ERROR] Fail to prepare"}),
    [](const auto& row) { return std::string(row.param.call); });

TEST_F(VoiceControlTest, ADisabledVoiceControlEndsTheInitialization) {
    fake::setVoiceEnabled(false);
    VoiceControl control;
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Voice control is disabled"));
    EXPECT_EQ(fake::platform().names().back(), "vc_setting_get_enabled");
}

TEST_F(VoiceControlTest, AFailureToListTheLanguagesIsOnlyLogged) {
    fake::platform().answer("vc_mgr_foreach_supported_languages", VC_ERROR_OPERATION_FAILED);
    VoiceControl control;
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Fail to foreach supported lang"));
    EXPECT_EQ(fake::platform().count("vc_mgr_prepare"), 1u);
    EXPECT_FALSE(control.isSupportedLang("en_US"));
}

TEST_F(VoiceControlTest, SupportedLanguagesMatchExactly) {
    fake::setSupportedLanguages({"en_US", "fr_FR"});
    VoiceControl control;
    EXPECT_TRUE(control.isSupportedLang("fr_FR"));
    EXPECT_FALSE(control.isSupportedLang("fr_fr"));
    EXPECT_FALSE(control.isSupportedLang("ko_KR"));
}

TEST_F(VoiceControlTest, TheEngineReloadsOnlyForAnotherModel) {
    VoiceControl control;
    control.setLanguage("ko_KR");
    fake::platform().forgetCalls();
    EXPECT_TRUE(control.setLanguage("fr_FR"));
    EXPECT_TRUE(control.setLanguage("fr_FR"));
    EXPECT_TRUE(control.setLanguage("de_DE"));
    EXPECT_EQ(fake::platform().texts(),
              (Texts{"vc_setting_set_language(fr_FR)", "vc_mgr_set_private_data(Request, reloadEngine)",
                     "vc_setting_set_language(fr_FR)", "vc_setting_set_language(de_DE)"}));
    control.setLanguage("en_US");
    EXPECT_EQ(fake::platform().count("vc_mgr_set_private_data"), 2u);
}

TEST_F(VoiceControlTest, FourEuropeanLanguagesShareOneModelAndEachOtherLanguageHasItsOwn) {
    VoiceControl control;
    const std::pair<const char*, bool> rows[] = {{"ko_KR", true},  {"en_GB", true}, {"de_DE", false}, {"it_IT", false},
                                                 {"fr_FR", false}, {"es_ES", true}, {"zh_CN", true},  {"en_US", true},
                                                 {"en_US", false}, {"it_IT", true}, {"en_GB", false}, {"ko_KR", true}};
    control.setLanguage("xx_XX");
    for (const auto& [language, reloads] : rows) {
        fake::platform().forgetCalls();
        EXPECT_TRUE(control.setLanguage(language));
        EXPECT_EQ(fake::platform().count("vc_mgr_set_private_data"), reloads ? 1u : 0u) << language;
    }
}

TEST_F(VoiceControlTest, TheLastLanguageOutlivesTheObject) {
    { VoiceControl().setLanguage("ko_KR"); }
    VoiceControl control;
    fake::platform().forgetCalls();
    control.setLanguage("ko_KR");
    EXPECT_EQ(fake::platform().count("vc_mgr_set_private_data"), 0u);
}

TEST_F(VoiceControlTest, ARefusedLanguageIsLoggedWithTheErrorsName) {
    VoiceControl control;
    control.setLanguage("ko_KR");
    fake::platform().answerNext("vc_setting_set_language", VC_ERROR_INVALID_LANGUAGE);
    fake::platform().forgetCalls();
    EXPECT_FALSE(control.setLanguage("xx_XX"));
    EXPECT_TRUE(control.setLanguage("ko_KR"));
    EXPECT_EQ(fake::platform().count("vc_mgr_set_private_data"), 0u) << "the last language has not changed";
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "vc_setting_set_language: INVALID_LANGUAGE"));
}

TEST_F(VoiceControlTest, AStartMakesItsCallsInOrder) {
    VoiceControl control;
    fake::platform().forgetCalls();
    EXPECT_EQ(control.startRecognition(VoiceStartMode::Default, "7"), 0);
    EXPECT_EQ(fake::platform().texts(),
              (Texts{"vc_mgr_set_private_data(MediaVolume, 7)", "vc_mgr_set_recognition_mode(0)",
                     "vc_mgr_set_command_list(" + SYSTEM_COMMANDS + ")", "vc_mgr_start(0)"}));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Voice Start Mode: Default"));
}

TEST_F(VoiceControlTest, PushToTalkLetsThePersonEndTheUtterance) {
    VoiceControl control;
    control.startRecognition(VoiceStartMode::PTT, "");
    EXPECT_EQ(fake::platform().textsOf({"vc_mgr_set_recognition"}), Texts{"vc_mgr_set_recognition_mode(3)"});
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Voice Start Mode: PTT"));
}

TEST_F(VoiceControlTest, AStartWithAClearedContextFirstResetsTheServersSession) {
    VoiceControl control;
    fake::platform().forgetCalls();
    control.startRecognition(VoiceStartMode::ClearContext, "3");
    EXPECT_EQ(fake::platform().texts(),
              (Texts{"vc_mgr_set_private_data(Request, resetSession)", "vc_mgr_set_private_data(MediaVolume, 3)",
                     "vc_mgr_set_recognition_mode(0)", "vc_mgr_set_command_list(" + SYSTEM_COMMANDS + ")",
                     "vc_mgr_start(0)"}));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Voice Start Mode: ClearContext"));
}

TEST_F(VoiceControlTest, AStartInAnUnknownModeEndsBySilence) {
    VoiceControl control;
    control.startRecognition(VoiceStartMode::Unnamed, "");
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Voice Start Mode: UNKNOWN"));
    EXPECT_EQ(fake::platform().textsOf({"vc_mgr_set_recognition"}), Texts{"vc_mgr_set_recognition_mode(0)"});
}

TEST_F(VoiceControlTest, AStartClearsWhatTheLastRecognitionSessionReceivedBeforeItStartsTheEngine) {
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

TEST_F(VoiceControlTest, FailuresOfStartAndStopAndCancelAreReturnedAndLogged) {
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

TEST_F(VoiceControlTest, ASecondTimeoutTimerKeepsTheFirst) {
    VoiceControl control;
    control.startTimeOutTimer(5);
    control.startTimeOutTimer(9);
    EXPECT_EQ(fake::mainLoop().timers(), 1u);
    EXPECT_EQ(fake::mainLoop().interval(0), 5);
    control.stopTimeOutTimer();
    control.stopTimeOutTimer();
    EXPECT_EQ(fake::platform().count("ecore_timer_del"), 1u);
}

TEST_F(VoiceControlTest, EachServiceStateIsReportedAndHasItsTimeout) {
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

TEST_F(VoiceControlTest, AChangeOfTheServiceStateActsInOrder) {
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

TEST_F(VoiceControlTest, TheServiceStateNoneMeansIdleAndIsNotReported) {
    VoiceControl control;
    collectReportsOf(control);
    fake::serviceState(READY, NONE);
    EXPECT_EQ(reports, Texts{"recognition Idle"});
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Previous(Ready) -> Current(None)"));
}

TEST_F(VoiceControlTest, ARecordingWithoutSpeechTimesOutWithAnErrorAndIsCanceled) {
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

TEST_F(VoiceControlTest, ARecordingWithSpeechThatTimesOutIsStopped) {
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

TEST_F(VoiceControlTest, ProcessingThatTimesOutReportsAnErrorAndIsCanceled) {
    VoiceControl control;
    collectReportsOf(control);
    fake::serviceState(RECORDING, PROCESSING);
    fake::mainLoop().advance(30.1);
    EXPECT_EQ(reports.back(), "Error ProcessingTimeout");
    EXPECT_EQ(fake::platform().count("vc_mgr_cancel"), 1u);
}

TEST_F(VoiceControlTest, ATimeoutInAnyOtherStateCancelsWithoutAReport) {
    VoiceControl control;
    collectReportsOf(control);
    control.startTimeOutTimer(1);
    fake::mainLoop().advance(1.1);
    EXPECT_TRUE(reports.empty());
    EXPECT_EQ(fake::platform().count("vc_mgr_cancel"), 1u);
}

TEST_F(VoiceControlTest, TheHandleOfATimerThatFiredIsDeletedAtTheNextStateChange) {
    VoiceControl control;
    collectReportsOf(control);
    fake::serviceState(READY, RECORDING);
    fake::mainLoop().advance(8);
    fake::serviceState(RECORDING, READY);
    EXPECT_EQ(fake::platform().count("ecore_timer_del"), 1u);
}

TEST_F(VoiceControlTest, EachErrorMessageOfTheServerHasItsErrorType) {
    const std::pair<const char*, const char*> rows[] = {{"Server timed out!", "ProcessingTimeout"},
                                                        {"network_timeout_exception", "ProcessingTimeout"},
                                                        {"connection_fail_exception", "ProcessingTimeout"},
                                                        {"612: ASR timed out", "ProcessingTimeout"},
                                                        {"NLU Exception", "ServerCrashed"},
                                                        {"Unknown error 1", "ServerCrashed"},
                                                        {"server_side_prepare_exception", "ServerCrashed"},
                                                        {"nlu exception", "Default"}};
    for (const auto& [message, error] : rows) {
        for (auto previous : {RECORDING, PROCESSING}) {
            VoiceControl control;
            collectReportsOf(control);
            fake::setVoiceErrorMessage(message);
            fake::voiceError(VC_ERROR_TIMED_OUT);
            EXPECT_TRUE(reports.empty()) << "reported only at Ready";
            EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "==== vc error - TIMED_OUT ===="));
            EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, std::string("Error Msg: [") + message + "]"));
            fake::serviceState(previous, READY);
            EXPECT_EQ(reports, (Texts{"recognition Ready", std::string("Error ") + error}));
            reports.clear();
        }
    }
}

TEST_F(VoiceControlTest, ReadyWithoutAnErrorMessageReportsNothing) {
    VoiceControl control;
    collectReportsOf(control);
    fake::serviceState(RECORDING, READY);
    EXPECT_EQ(reports, Texts{"recognition Ready"});
}

TEST_F(VoiceControlTest, AnErrorMessageStaysUntilAResultArrives) {
    VoiceControl control;
    collectReportsOf(control);
    fake::setVoiceErrorMessage("NLU Exception");
    fake::voiceError(VC_ERROR_OPERATION_FAILED);
    fake::serviceState(RECORDING, READY);
    control.startRecognition(VoiceStartMode::Default, "");
    fake::serviceState(PROCESSING, READY);
    EXPECT_EQ(reports, (Texts{"recognition Ready", "Error ServerCrashed", "recognition Ready", "Error ServerCrashed"}));
}

TEST_F(VoiceControlTest, AnErrorMessageIsReportedOnlyAfterRecordingOrProcessing) {
    VoiceControl control;
    collectReportsOf(control);
    fake::setVoiceErrorMessage("NLU Exception");
    fake::voiceError(VC_ERROR_OPERATION_FAILED);
    fake::serviceState(NONE, READY);
    EXPECT_EQ(reports, Texts{"recognition Ready"});
}

TEST_F(VoiceControlTest, AReadyManagerReceivesTheDomainAndThenThePreloadedCommands) {
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

TEST_F(VoiceControlTest, OtherManagerStatesAreOnlyLogged) {
    VoiceControl control;
    collectReportsOf(control);
    fake::voiceState(VC_STATE_NONE, VC_STATE_INITIALIZED);
    fake::voiceState(VC_STATE_READY, static_cast<vc_state_e>(3));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Previous(None) -> Current(Initialized)"));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Previous(Ready) -> Current(UNKNOWN)"));
    EXPECT_TRUE(reports.empty());
    EXPECT_TRUE(fake::platform().calls().empty());
}

TEST_F(VoiceControlTest, ALostEngineIsReportedAndItsServiceStateReplayedAsReady) {
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

TEST_F(VoiceControlTest, TheReplayStartsFromTheLastServiceState) {
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

TEST_F(VoiceControlTest, TheReplayStartsFromNoneWhenTheEngineIsLostFirst) {
    VoiceControl control;
    collectReportsOf(control);
    fake::voiceState(VC_STATE_READY, VC_STATE_INITIALIZED);
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Previous(None) -> Current(Ready)"));
}

TEST_F(VoiceControlTest, EveryErrorHasItsName) {
    const std::pair<int, const char*> rows[] = {{VC_ERROR_NONE, "NONE"},
                                                {VC_ERROR_OUT_OF_MEMORY, "OUT_OF_MEMORY"},
                                                {VC_ERROR_IO_ERROR, "IO_ERROR"},
                                                {VC_ERROR_INVALID_PARAMETER, "INVALID_PARAMETER"},
                                                {VC_ERROR_TIMED_OUT, "TIMED_OUT"},
                                                {VC_ERROR_RECORDER_BUSY, "RECORDER_BUSY"},
                                                {VC_ERROR_PERMISSION_DENIED, "PERMISSION_DENIED"},
                                                {VC_ERROR_NOT_SUPPORTED, "NOT_SUPPORTED"},
                                                {VC_ERROR_INVALID_STATE, "INVALID_STATE"},
                                                {VC_ERROR_INVALID_LANGUAGE, "INVALID_LANGUAGE"},
                                                {VC_ERROR_ENGINE_NOT_FOUND, "ENGINE_NOT_FOUND"},
                                                {VC_ERROR_OPERATION_FAILED, "OPERATION_FAILED"},
                                                {VC_ERROR_OPERATION_REJECTED, "OPERATION_REJECTED"},
                                                {VC_ERROR_ITERATION_END, "ITERATION_END"},
                                                {VC_ERROR_EMPTY, "EMPTY"},
                                                {-12345, "VC_ERROR_UNKNOWN"}};
    for (const auto& [error, name] : rows) {
        EXPECT_STREQ(OrvaneDA::voiceErrorName(error), name);
    }
}

TEST_F(VoiceControlTest, ChangesOfTheEnabledSettingAndTheLanguageAreOnlyLogged) {
    VoiceControl control;
    collectReportsOf(control);
    fake::voiceEnabledChanged(false);
    fake::voiceLanguageChanged("en_US", "fr_FR");
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Voice control enabled changed to (0)"));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Language is changed (en_US) to (fr_FR)"));
    EXPECT_TRUE(reports.empty());
    EXPECT_TRUE(fake::platform().calls().empty());
}

TEST_F(VoiceControlTest, CallbacksThatAreNotSetAreSkipped) {
    VoiceControl control;
    fake::serviceState(READY, RECORDING);
    fake::preResult(VC_PRE_RESULT_EVENT_FINAL, "x");
    control.syncAppState(OrvaneDA::ClientState::Error, OrvaneDA::ErrorType::Default);
    fake::mainLoop().advance(11);
    EXPECT_EQ(fake::platform().count("vc_mgr_stop"), 1u);
}

// SPDX-License-Identifier: Apache-2.0
#include "fake/voice/FakeVoice.h"
#include "voice/VoiceFixture.h"

using OrvaneDA::VoiceControl;
using VoiceConnectionTest = VoiceTest;

TEST_F(VoiceConnectionTest, InitializationMakesItsCallsInOrder) {
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

TEST_F(VoiceConnectionTest, ThePathOfThePreloadedCommandsIsComputedOnceAtTheStart) {
    VoiceControl control;
    fake::platform().onCall("vc_mgr_set_preloaded_commands_from_file",
                            [](const fake::Call&) { EXPECT_EQ(fake::platform().count("tzplatform_mkpath"), 0u); });
    fake::platform().forgetCalls();
    fake::voiceState(VC_STATE_INITIALIZED, VC_STATE_READY);
    EXPECT_EQ(fake::platform().count("vc_mgr_set_preloaded_commands_from_file"), 1u);
}

TEST_F(VoiceConnectionTest, DestructionMakesItsCallsInOrder) {
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

TEST_F(VoiceConnectionTest, TheCommandListIsDestroyedOnceWhenDeinitPrecedesTheDestruction) {
    {
        VoiceControl control;
        control.deinitVoiceControl();
    }
    EXPECT_EQ(fake::platform().textsOf({"vc_cmd_list_destroy"}),
              (Texts{"vc_cmd_list_destroy(list, 1)", "vc_cmd_list_destroy(null, 1)"}));
    EXPECT_EQ(fake::openCommandLists(), 0);
}

TEST_F(VoiceConnectionTest, DestructionDeletesTheTimer) {
    {
        VoiceControl control;
        control.startTimeOutTimer(7);
    }
    EXPECT_EQ(fake::mainLoop().timers(), 0u);
}

TEST_F(VoiceConnectionTest, AFailedCallOfDeinitIsLoggedWithTheErrorsName) {
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
class AFailedCallOfTheInitialization : public VoiceConnectionTest,
                                       public testing::WithParamInterface<InitializationFailure> {};

TEST_P(AFailedCallOfTheInitialization, IsLoggedAndEndsTheInitialization) {
    fake::platform().answer(GetParam().call, VC_ERROR_OPERATION_FAILED);
    VoiceControl control;
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, GetParam().message));
    EXPECT_EQ(fake::platform().names().back(), GetParam().call);
}

TEST_F(VoiceConnectionTest, AFailureIsLoggedUnderItsOperation) {
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

TEST_F(VoiceConnectionTest, ADisabledVoiceControlEndsTheInitialization) {
    fake::setVoiceEnabled(false);
    VoiceControl control;
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Voice control is disabled"));
    EXPECT_EQ(fake::platform().names().back(), "vc_setting_get_enabled");
}

TEST_F(VoiceConnectionTest, AFailureToListTheLanguagesIsOnlyLogged) {
    fake::platform().answer("vc_mgr_foreach_supported_languages", VC_ERROR_OPERATION_FAILED);
    VoiceControl control;
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Fail to foreach supported lang"));
    EXPECT_EQ(fake::platform().count("vc_mgr_prepare"), 1u);
    EXPECT_FALSE(control.isSupportedLang("en_US"));
}

// SPDX-License-Identifier: Apache-2.0
#include "UiRequests.h"
#include "service/ServiceFixture.h"

using OrvaneDA::ClientState;
using OrvaneDA::ErrorType;

using StateTest = ServiceTest;

namespace {

void theErrorIsSentBeforeTheCancel() {
    fake::platform().onCall("vc_mgr_cancel",
                            [](const fake::Call&) { EXPECT_TRUE(fake::platform().logged(DLOG_INFO, "Error")); });
}

}  // namespace

TEST_F(StateTest, StatesAndErrorsAreSentByName) {
    const char* states[] = {"Idle",  "Init",    "Recording", "Ready",  "Processing",
                            "Error", "StandBy", "UNKNOWN",   "UNKNOWN"};
    for (int value = 0; value < 9; ++value) {
        EXPECT_STREQ(OrvaneDA::wireName(static_cast<ClientState>(value)), states[value]);
    }
    const char* errors[] = {"None",
                            "Default",
                            "MicOff",
                            "WifiOff",
                            "RecordingTimeout",
                            "ProcessingTimeout",
                            "ServiceNotReady",
                            "NoResultJson",
                            "ServerCrashed",
                            "UNKNOWN"};
    for (int value = 0; value < 10; ++value) {
        EXPECT_STREQ(OrvaneDA::wireName(static_cast<ErrorType>(value)), errors[value]);
    }
}

TEST_F(StateTest, AStateIsSentToTheUiWithItsError) {
    create();
    EXPECT_EQ(service->sendStateToUI(ClientState::Recording, ErrorType::None), 0);
    EXPECT_EQ(service->sendStateToUI(static_cast<ClientState>(7), static_cast<ErrorType>(9)), 0);
    EXPECT_EQ(sent(), (Texts{state("Recording", "None"), state("UNKNOWN", "UNKNOWN")}));
    EXPECT_TRUE(fake::platform().logged(DLOG_INFO, "Recording"));
}

TEST_F(StateTest, AStateHasNoExtrasOfThePreviousOne) {
    create();
    OrvaneDA::UiRequests::get().stateChange.addExtraData("left", "over");
    service->sendStateToUI(ClientState::Recording, ErrorType::None);
    EXPECT_EQ(sent(), Texts{state("Recording", "None")});
}

TEST_F(StateTest, AServiceThatStartsWhileTheUiRunsReportsServerCrashedOnce) {
    fake::setRunning("org.tizen.orvane-da");
    create();
    fake::serviceState(VC_SERVICE_STATE_READY, VC_SERVICE_STATE_RECORDING);
    EXPECT_EQ(sent(), (Texts{state("Error", "ServerCrashed"), state("Recording", "None")}));
}

TEST_F(StateTest, AServiceThatStartsWithoutTheUiReportsNothing) {
    create();
    EXPECT_TRUE(sent().empty());
}

TEST_F(StateTest, ReadyWaitsUntilTheUiShowsIt) {
    create();
    int polls = 0;
    fake::platform().onCall("usleep", [&](const fake::Call& call) {
        EXPECT_EQ(call.args.at(0), "100000");
        if (++polls == 3) {
            fake::setSetting("db/orvane/manager/response", 1);
        }
    });
    vc_cmd_list_s list;
    fake::allResult(VC_RESULT_EVENT_RESULT_SUCCESS, list, nullptr);
    EXPECT_EQ(polls, 3);
    const Texts settings = fake::platform().textsOf({"vconf_set_bool"});
    EXPECT_EQ(settings, Texts{"vconf_set_bool(db/orvane/manager/response, 0)"});
    EXPECT_EQ(sent(), Texts{state("Ready", "NoResultJson")});
}

TEST_F(StateTest, ReadyDoesNotWaitIfTheUiShowsItAtOnce) {
    create();
    acknowledge();
    vc_cmd_list_s list;
    fake::allResult(VC_RESULT_EVENT_RESULT_SUCCESS, list, nullptr);
    EXPECT_EQ(fake::platform().textsOf({"vconf_get_bool", "usleep"}),
              Texts{"vconf_get_bool(db/orvane/manager/response)"});
}

TEST_F(StateTest, TheUisFlagIsClearedBeforeAStateIsSent) {
    create();
    fake::platform().onCall("vconf_set_bool", [](const fake::Call& call) {
        EXPECT_EQ(call.text(), "vconf_set_bool(db/orvane/manager/response, 0)");
        EXPECT_FALSE(fake::platform().logged(DLOG_INFO, "Recording"));
    });
    fake::serviceState(VC_SERVICE_STATE_READY, VC_SERVICE_STATE_RECORDING);
    EXPECT_EQ(fake::platform().count("vconf_set_bool"), 1u);
    EXPECT_TRUE(fake::platform().logged(DLOG_INFO, "Recording"));
}

TEST_F(StateTest, AFailedSendIsNotRepeatedAndItsStateCounts) {
    create();
    fake::platform().answer("app_control_send_launch_request", APP_CONTROL_ERROR_LAUNCH_FAILED);
    service->sendStateToUI(ClientState::Recording, ErrorType::None);
    ASSERT_TRUE(fake::platform().waitFor("app_control_send_launch_request"));
    fake::platform().answer("app_control_send_launch_request", 0);
    fake::changeSetting("db/mic_key/status", 0);
    EXPECT_EQ(sent(), Texts{state("Error", "MicOff")});
    EXPECT_EQ(cancels(), 1u);
}

TEST_F(StateTest, WaitingForReadyEndsAfterTenPolls) {
    create();
    vc_cmd_list_s list;
    fake::allResult(VC_RESULT_EVENT_RESULT_SUCCESS, list, nullptr);
    Texts polls;
    for (int i = 0; i < 10; ++i) {
        polls.insert(polls.end(), {"vconf_get_bool(db/orvane/manager/response)", "usleep(100000)"});
    }
    EXPECT_EQ(fake::platform().textsOf({"vconf_get_bool", "usleep"}), polls);
}

TEST_F(StateTest, OtherStatesDoNotWait) {
    create();
    fake::serviceState(VC_SERVICE_STATE_READY, VC_SERVICE_STATE_RECORDING);
    EXPECT_EQ(fake::platform().count("usleep"), 0u);
    EXPECT_EQ(sent(), Texts{state("Recording", "None")});
}

TEST_F(StateTest, TurningTheMicrophoneOffCancelsRecognition) {
    for (auto going : {VC_SERVICE_STATE_RECORDING, VC_SERVICE_STATE_PROCESSING}) {
        create();
        fake::serviceState(VC_SERVICE_STATE_READY, going);
        theErrorIsSentBeforeTheCancel();
        fake::changeSetting("db/mic_key/status", 0);
        EXPECT_EQ(sent().back(), state("Error", "MicOff"));
        EXPECT_EQ(cancels(), 1u);
        restart();
    }
}

TEST_F(StateTest, LosingTheNetworkCancelsRecognition) {
    for (auto going : {VC_SERVICE_STATE_RECORDING, VC_SERVICE_STATE_PROCESSING}) {
        create();
        fake::serviceState(VC_SERVICE_STATE_READY, going);
        theErrorIsSentBeforeTheCancel();
        fake::changeConnection(CONNECTION_TYPE_DISCONNECTED);
        EXPECT_EQ(sent().back(), state("Error", "WifiOff"));
        EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "send connection error"));
        EXPECT_EQ(cancels(), 1u);
        restart();
    }
}

TEST_F(StateTest, LosingMicrophoneOrNetworkInAnyOtherStateChangesNothing) {
    create();
    for (auto idle :
         {ClientState::Idle, ClientState::Ready, ClientState::Init, ClientState::Error, ClientState::StandBy}) {
        service->sendStateToUI(idle, ErrorType::None);
        const size_t before = sent().size();
        fake::changeSetting("db/mic_key/status", 0);
        fake::changeSetting("db/mic_key/status", 1);
        fake::changeConnection(CONNECTION_TYPE_DISCONNECTED);
        fake::changeConnection(CONNECTION_TYPE_ETHERNET);
        EXPECT_EQ(sent().size(), before);
    }
    EXPECT_EQ(cancels(), 0u);
}

TEST_F(StateTest, TurningTheMicrophoneOnCancelsNothing) {
    create();
    fake::changeSetting("db/mic_key/status", 0);
    fake::serviceState(VC_SERVICE_STATE_READY, VC_SERVICE_STATE_RECORDING);
    fake::changeSetting("db/mic_key/status", 1);
    EXPECT_EQ(cancels(), 0u);
}

TEST_F(StateTest, PartialResultsGoToTheUisPort) {
    create();
    fake::preResult(VC_PRE_RESULT_EVENT_PARTIAL, "open");
    fake::preResult(VC_PRE_RESULT_EVENT_FINAL, "open music");
    EXPECT_EQ(fake::platform().textsOf({"message_port_send"}),
              (Texts{"message_port_send_trusted_message(org.tizen.orvane-da, partial, key_is_final_result=False "
                     "key_partial_result=open operation=partialText)",
                     "message_port_send_trusted_message(org.tizen.orvane-da, partial, key_is_final_result=True "
                     "key_partial_result=open music operation=partialText)"}));
    EXPECT_TRUE(fake::platform().logged(DLOG_INFO, "open music"));
}

TEST_F(StateTest, RecordingStartsTheVolumeTimerAndThenStopsTheTrigger) {
    create();
    fake::serviceState(VC_SERVICE_STATE_READY, VC_SERVICE_STATE_RECORDING);
    EXPECT_EQ(fake::platform().textsOf({"ecore_timer_add", "IWakeupCtx", "vconf_set_bool"}),
              (Texts{"ecore_timer_add(0.020000)", "IWakeupCtx::CancelListening()",
                     "vconf_set_bool(db/orvane/manager/response, 0)", "ecore_timer_add(7.000000)"}));
}

TEST_F(StateTest, TheTriggerListensExceptDuringRecordingAndProcessing) {
    create();
    EXPECT_TRUE(fake::engineListens());
    fake::serviceState(VC_SERVICE_STATE_READY, VC_SERVICE_STATE_RECORDING);
    EXPECT_FALSE(fake::engineListens());
    fake::serviceState(VC_SERVICE_STATE_RECORDING, VC_SERVICE_STATE_PROCESSING);
    EXPECT_FALSE(fake::engineListens());
    for (auto over : {VC_SERVICE_STATE_READY, VC_SERVICE_STATE_NONE}) {
        fake::serviceState(VC_SERVICE_STATE_PROCESSING, over);
        EXPECT_TRUE(fake::engineListens());
        fake::serviceState(VC_SERVICE_STATE_READY, VC_SERVICE_STATE_RECORDING);
    }
    fake::serviceState(VC_SERVICE_STATE_RECORDING, VC_SERVICE_STATE_READY);
    EXPECT_TRUE(fake::engineListens());
    fake::serviceState(VC_SERVICE_STATE_READY, VC_SERVICE_STATE_PROCESSING);
    EXPECT_FALSE(fake::engineListens()) << "also without recording before";
}

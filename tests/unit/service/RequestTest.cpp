// SPDX-License-Identifier: Apache-2.0
#include "service/ServiceFixture.h"
#include "voice/SystemCommands.h"

using RequestTest = ServiceTest;

namespace {

Texts session() {
    return fake::platform().textsOf({"vc_mgr_"});
}

Texts started(const std::string& volume, int mode) {
    return {"vc_mgr_set_private_data(MediaVolume, " + volume + ")",
            "vc_mgr_set_recognition_mode(" + std::to_string(mode) + ")",
            "vc_mgr_set_command_list(" + SYSTEM_COMMANDS + ")", "vc_mgr_start(0)"};
}

}  // namespace

TEST_F(RequestTest, AStartPassesModeAndVolumeToTheRecognitionSession) {
    create();
    request("start_voice_engine", {{"key_start_mode", "PTT"}, {"current_volume", "7"}});
    EXPECT_EQ(session(), started("7", 3));
    EXPECT_TRUE(sent().empty());
    EXPECT_TRUE(fake::platform().logged(DLOG_INFO, "Service::onAppControl"));
}

TEST_F(RequestTest, AModeThatDiffersInCaseIsUnknown) {
    create();
    request("start_voice_engine", {{"key_start_mode", "ptt"}});
    EXPECT_EQ(session(), started("", 0));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Voice Start Mode: UNKNOWN"));
}

TEST_F(RequestTest, ModesAreComparedExactly) {
    using OrvaneDA::startModeOf;
    EXPECT_EQ(static_cast<int>(startModeOf("Default")), 0);
    EXPECT_EQ(static_cast<int>(startModeOf("PTT")), 1);
    EXPECT_EQ(static_cast<int>(startModeOf("ClearContext")), 2);
    EXPECT_EQ(static_cast<int>(startModeOf("")), 3);
    EXPECT_EQ(static_cast<int>(startModeOf("UNKNOWN")), 3);
}

TEST_F(RequestTest, AStartWithoutExtrasHasNoModeAndNoVolume) {
    create();
    request("start_voice_engine");
    EXPECT_EQ(session(), started("", 0));
}

TEST_F(RequestTest, AStartWithoutMicrophoneAndNetworkReportsTheMicrophone) {
    create();
    fake::setSetting("db/mic_key/status", 0);
    fake::setConnection(CONNECTION_TYPE_DISCONNECTED);
    request("start_voice_engine");
    EXPECT_TRUE(session().empty());
    EXPECT_EQ(sent(), Texts{state("Error", "MicOff")});
}

TEST_F(RequestTest, AStartWithoutANetworkReportsIt) {
    create();
    fake::setConnection(CONNECTION_TYPE_DISCONNECTED);
    request("start_voice_engine");
    EXPECT_TRUE(session().empty());
    EXPECT_EQ(sent(), Texts{state("Error", "WifiOff")});
}

TEST_F(RequestTest, ARefusedStartReportsServiceNotReady) {
    create();
    fake::platform().answer("vc_mgr_start", VC_ERROR_INVALID_STATE);
    request("start_voice_engine");
    EXPECT_EQ(sent(), Texts{state("Error", "ServiceNotReady")});
}

TEST_F(RequestTest, AStopWithoutARecognitionSessionIsPassedOn) {
    create();
    request("stop_voice_engine");
    EXPECT_EQ(session(), Texts{"vc_mgr_stop()"});
    EXPECT_TRUE(sent().empty());
}

TEST_F(RequestTest, ACloseCancelsAndSendsNoState) {
    create();
    request("close_voice_engine");
    EXPECT_EQ(session(), Texts{"vc_mgr_cancel()"});
    EXPECT_TRUE(sent().empty());
}

TEST_F(RequestTest, ACloseDuringARecognitionSessionSendsNoState) {
    create();
    fake::serviceState(VC_SERVICE_STATE_READY, VC_SERVICE_STATE_RECORDING);
    request("close_voice_engine");
    EXPECT_EQ(session(), Texts{"vc_mgr_cancel()"});
    EXPECT_EQ(sent(), Texts{state("Recording", "None")});
}

TEST_F(RequestTest, ACancelWithoutARecognitionSessionSendsStandByAndThenCancels) {
    create();
    fake::platform().onCall("vc_mgr_cancel",
                            [&](const fake::Call&) { EXPECT_TRUE(fake::platform().logged(DLOG_INFO, "StandBy")); });
    request("cancel_voice_engine");
    EXPECT_EQ(session(), Texts{"vc_mgr_cancel()"});
    EXPECT_EQ(sent(), Texts{state("StandBy", "None")});
}

TEST_F(RequestTest, EachRequestIsLoggedWithItsFunction) {
    create();
    const std::pair<const char*, const char*> functions[] = {{"start_voice_engine", ": startRecognition("},
                                                             {"stop_voice_engine", ": stopRecognition("},
                                                             {"close_voice_engine", ": cancelRecognition("}};
    for (const auto& [operation, function] : functions) {
        request(operation);
        const auto lines = fake::platform().logs();
        EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                                [&, function = function](const fake::LogLine& line) {
                                    return line.priority == DLOG_INFO && line.message.empty() &&
                                           line.text.find(function) != std::string::npos;
                                }),
                  1)
            << function;
    }
}

TEST_F(RequestTest, AnyOtherOperationIsIgnoredWithoutALogLine) {
    create();
    for (const char* operation : {"Start_voice_engine", "state_change", "", "start_voice_engine/"}) {
        request(operation);
    }
    EXPECT_TRUE(session().empty());
    EXPECT_EQ(fake::platform().logs().size(), 4u) << "one line for each function";
}

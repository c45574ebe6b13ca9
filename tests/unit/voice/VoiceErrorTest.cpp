// SPDX-License-Identifier: Apache-2.0
#include "Controller/Voice/VoiceErrors.h"
#include "fake/voice/FakeVoice.h"
#include "voice/VoiceFixture.h"

using OrvaneDA::VoiceControl;
using OrvaneDA::VoiceStartMode;
using VoiceErrorTest = VoiceTest;

namespace {

constexpr auto NONE = VC_SERVICE_STATE_NONE;
constexpr auto READY = VC_SERVICE_STATE_READY;
constexpr auto RECORDING = VC_SERVICE_STATE_RECORDING;
constexpr auto PROCESSING = VC_SERVICE_STATE_PROCESSING;

}  // namespace

TEST_F(VoiceErrorTest, EachErrorMessageOfTheServerHasItsErrorType) {
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

TEST_F(VoiceErrorTest, ReadyWithoutAnErrorMessageReportsNothing) {
    VoiceControl control;
    collectReportsOf(control);
    fake::serviceState(RECORDING, READY);
    EXPECT_EQ(reports, Texts{"recognition Ready"});
}

TEST_F(VoiceErrorTest, AnErrorMessageStaysUntilAResultArrives) {
    VoiceControl control;
    collectReportsOf(control);
    fake::setVoiceErrorMessage("NLU Exception");
    fake::voiceError(VC_ERROR_OPERATION_FAILED);
    fake::serviceState(RECORDING, READY);
    control.startRecognition(VoiceStartMode::Default, "");
    fake::serviceState(PROCESSING, READY);
    EXPECT_EQ(reports, (Texts{"recognition Ready", "Error ServerCrashed", "recognition Ready", "Error ServerCrashed"}));
}

TEST_F(VoiceErrorTest, AnErrorMessageIsReportedOnlyAfterRecordingOrProcessing) {
    VoiceControl control;
    collectReportsOf(control);
    fake::setVoiceErrorMessage("NLU Exception");
    fake::voiceError(VC_ERROR_OPERATION_FAILED);
    fake::serviceState(NONE, READY);
    EXPECT_EQ(reports, Texts{"recognition Ready"});
}

TEST_F(VoiceErrorTest, EveryErrorHasItsName) {
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

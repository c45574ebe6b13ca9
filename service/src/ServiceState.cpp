// SPDX-License-Identifier: Apache-2.0
// Reports states and partial results to the UI.
#include <unistd.h>

#include "Service.h"
#include "UiRequests.h"
#include "Util/AppControl.h"
#include "Util/Constants.h"
#include "Util/Log.h"
#include "Util/SystemConfig.h"

namespace OrvaneDA {

namespace {

using Util::systemConfig;

constexpr int UI_READY_POLLS = 10;
constexpr useconds_t UI_READY_POLL_US = 100'000;

}  // namespace

void Service::reportState(const ClientState& state, const ErrorType& error) {
    systemConfig().setVoiceResponseState(false);
    sendStateToUI(state, error);
    if (state == ClientState::Ready) {
        waitForUi();
    }
}

// Blocks the main loop until the UI shows Ready, for at most about one second, so that recording does not begin
// earlier.
void Service::waitForUi() {
    for (int poll = 0; poll < UI_READY_POLLS; ++poll) {
        if (systemConfig().getVoiceResponseState()) {
            return;
        }
        usleep(UI_READY_POLL_US);
    }
}

int Service::sendStateToUI(const ClientState& state, const ErrorType& error) {
    LOGI("%s", wireName(state));
    Util::AppControlData& request = UiRequests::get().stateChange;
    request.clearExtraData();
    request.addExtraData(Constants::Key::STATE_CHANGE, wireName(state));
    request.addExtraData(Constants::Key::ERROR_TYPE, wireName(error));
    const int result = Util::AppControl::performAppControl(request);
    mState = state;
    return result;
}

void Service::sendPartialResult(const std::string& text, bool isFinal) {
    LOGI("%s", text.c_str());
    Util::MessageData message;
    message.addData(Constants::Key::OPERATION, "partialText")
        .addData(Constants::Key::PARTIAL_RESULT, text)
        .addData(Constants::Key::IS_FINAL_RESULT, isFinal ? "True" : "False");
    mUiPort.sendMessage(message);
}

void Service::micStateChanged() {
    if (systemConfig().getMicState() == 0 && isRecognizing()) {
        fail(ErrorType::MicOff);
    }
}

void Service::connectionStateChanged() {
    if (systemConfig().getConnectionState() == CONNECTION_TYPE_DISCONNECTED && isRecognizing()) {
        LOGD("send connection error");
        fail(ErrorType::WifiOff);
    }
}

bool Service::isRecognizing() const {
    return mState == ClientState::Recording || mState == ClientState::Processing;
}

void Service::fail(const ErrorType& error) {
    sendStateToUI(ClientState::Error, error);
    cancelRecognition();
}

}  // namespace OrvaneDA

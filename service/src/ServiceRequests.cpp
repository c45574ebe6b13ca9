// SPDX-License-Identifier: Apache-2.0
// The UI's requests.
#include <utility>

#include "Controller/VoiceControl.h"
#include "Service.h"
#include "Util/AppControlData.h"
#include "Util/Constants.h"
#include "Util/Log.h"
#include "Util/SystemConfig.h"

namespace OrvaneDA {

using Util::systemConfig;

void Service::onAppControl(app_control_h& request) {
    LOGI("Service::onAppControl");
    Util::AppControlData data(request);
    const std::string& operation = data.getOperation();
    if (operation == Constants::Operation::START_VOICE_ENGINE) {
        const VoiceStartMode mode = startModeOf(data.getExtraData(Constants::Key::START_MODE));
        startRecognition(mode, data.getExtraData(Constants::Key::CURRENT_VOLUME));
    } else if (operation == Constants::Operation::STOP_VOICE_ENGINE) {
        stopRecognition();
    } else if (operation == Constants::Operation::CLOSE_VOICE_ENGINE) {
        cancelRecognition();
    } else if (operation == Constants::Operation::CANCEL_VOICE_ENGINE) {
        sendStateToUI(ClientState::StandBy, ErrorType::None);
        cancelRecognition();
    }
}

void Service::startRecognition(VoiceStartMode mode, std::string volume) {
    LOGI("");
    if (systemConfig().getMicState() == 0) {
        sendStateToUI(ClientState::Error, ErrorType::MicOff);
        return;
    }
    if (systemConfig().getConnectionState() == CONNECTION_TYPE_DISCONNECTED) {
        sendStateToUI(ClientState::Error, ErrorType::WifiOff);
        return;
    }
    if (mVoiceControl->startRecognition(mode, std::move(volume)) != 0) {
        sendStateToUI(ClientState::Error, ErrorType::ServiceNotReady);
    }
}

void Service::stopRecognition() {
    LOGI("");
    mVoiceControl->stopRecognition(true);
}

void Service::cancelRecognition() {
    LOGI("");
    mVoiceControl->cancelRecognition(true, false);
}

}  // namespace OrvaneDA

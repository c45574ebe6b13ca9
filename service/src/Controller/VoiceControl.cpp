// SPDX-License-Identifier: Apache-2.0
#include "Controller/VoiceControl.h"

#include <voice_control_setting.h>

#include "Controller/Voice/AppLauncher.h"
#include "Controller/Voice/PreloadedCommands.h"
#include "Controller/Voice/VoiceErrors.h"
#include "Util/Languages.h"
#include "Util/Log.h"

namespace OrvaneDA {

VoiceControl::VoiceControl()
    : mTimer([this] { recognitionTimedOut(); }),
      mManager({_vc_enabled_changed_cb, _vc_state_changed_cb, _vc_service_state_changed_cb, _vc_all_result_cb,
                _vc_pre_result_cb, _vc_error_cb, _vc_speech_detected_cb, _vc_language_changed_cb, this}),
      mResults([this] { cancelRecognition(true, false); }) {
    preloadedCommandsPath();  // computed now, used when the engine is ready
    initVoiceControl();
}

VoiceControl::~VoiceControl() {
    deinitVoiceControl();
}

void VoiceControl::initVoiceControl() {
    if (mManager.open()) {
        Util::succeededOrLogged(createCommandList(), "[ERROR] Fail to create command list");
    }
}

void VoiceControl::deinitVoiceControl() {
    vc_mgr_unset_command_list();
    logIfFailed("vc_cmd_list_destroy", mCommands.destroy());
    mManager.close();
}

int VoiceControl::createCommandList() {
    LOGD("==== Create Command List ====");
    return mCommands.create() ? 0 : -1;
}

bool VoiceControl::setLanguage(std::string lang) {
    const int result = vc_setting_set_language(lang.c_str());
    if (result != VC_ERROR_NONE) {
        logIfFailed("vc_setting_set_language", result);
        return false;
    }
    const std::string model = Util::recognitionModelOf(lang);
    if (model != sLastModel) {
        vc_mgr_set_private_data("Request", "reloadEngine");
    }
    sLastModel = model;
    return true;
}

bool VoiceControl::isSupportedLang(std::string lang) {
    return mManager.supports(lang);
}

int VoiceControl::startRecognition(VoiceStartMode mode, std::string mediaVolume) {
    mPartialText.clear();
    if (mode == VoiceStartMode::ClearContext) {
        vc_mgr_set_private_data("Request", "resetSession");
    }
    vc_mgr_set_private_data("MediaVolume", mediaVolume.c_str());
    LOGD("Voice Start Mode: %s", TranslateStartModeToRecognitionMode(mode));
    vc_mgr_set_recognition_mode(mode == VoiceStartMode::PTT ? VC_RECOGNITION_MODE_MANUAL
                                                            : VC_RECOGNITION_MODE_STOP_BY_SILENCE);
    vc_mgr_set_command_list(mCommands.handle());
    mSpeechTimeOutArmed = false;
    mResultHandled = false;
    const int result = vc_mgr_start(false);
    if (result != VC_ERROR_NONE) {
        LOGE("vc_mgr_start() failed: %s", voiceErrorName(result));
    }
    return result;
}

int VoiceControl::stopRecognition(bool) {
    const int result = vc_mgr_stop();
    Util::succeededOrLogged(result, "[ERROR] Fail to stop");
    return result;
}

int VoiceControl::cancelRecognition(bool, bool) {
    const int result = vc_mgr_cancel();
    Util::succeededOrLogged(result, "[ERROR] Fail to cancel");
    return result;
}

void VoiceControl::startTimeOutTimer(double seconds) {
    mTimer.start(seconds);
}

void VoiceControl::stopTimeOutTimer() {
    mTimer.stop();
}

void VoiceControl::startSpeechTimeOutTimer(double seconds) {
    if (mSpeechTimeOutArmed.exchange(true)) {
        return;
    }
    stopTimeOutTimer();
    startTimeOutTimer(seconds);
}

void VoiceControl::recognitionTimedOut() {
    if (mServiceState == ClientState::Recording && !mPartialText.empty()) {
        stopRecognition(true);  // the person has spoken, so the result still follows
        return;
    }
    if (mServiceState == ClientState::Recording) {
        syncAppState(ClientState::Error, ErrorType::RecordingTimeout);
    } else if (mServiceState == ClientState::Processing) {
        syncAppState(ClientState::Error, ErrorType::ProcessingTimeout);
    }
    cancelRecognition(true, false);
}

void VoiceControl::syncAppState(const ClientState& state, const ErrorType& error) {
    if (mStateCallback) {
        mStateCallback(state, error);
    }
}

void VoiceControl::launchApps(vrp_response_data_s*& response) {
    AppLauncher::launchApps(response);
}

}  // namespace OrvaneDA

// SPDX-License-Identifier: Apache-2.0
// The callbacks of the voice-control manager.
#include "Controller/Voice/PreloadedCommands.h"
#include "Controller/Voice/ResultJson.h"
#include "Controller/Voice/VoiceErrors.h"
#include "Controller/Voice/VoiceStates.h"
#include "Controller/VoiceControl.h"
#include "UiRequests.h"
#include "Util/AppControl.h"
#include "Util/Log.h"
#include "Util/Text.h"

namespace OrvaneDA {

namespace {

constexpr double RECORDING_TIMEOUT_S = 7.0;
constexpr double SPEECH_TIMEOUT_S = 10.0;
constexpr double PROCESSING_TIMEOUT_S = 30.0;
constexpr char DOMAIN_BANNER[] = "Orvane DA, Version 1.0, SDK 7.1";

VoiceControl& self(void* userData) {
    return *static_cast<VoiceControl*>(userData);
}

}  // namespace

void VoiceControl::_vc_state_changed_cb(vc_state_e previous, vc_state_e current, void* user_data) noexcept {
    LOGD("==== State is changed ====");
    LOGD("Previous(%s) -> Current(%s)", stateName(previous), stateName(current));
    if (current == VC_STATE_READY) {
        vc_mgr_set_domain(DOMAIN_BANNER);
        vc_mgr_set_preloaded_commands_from_file(preloadedCommandsPath().c_str());
    } else if (previous == VC_STATE_READY && current == VC_STATE_INITIALIZED) {
        LOGW("Re-Prepare Voice Control Engine");
        VoiceControl& control = self(user_data);
        control.syncAppState(ClientState::Error, ErrorType::Default);
        _vc_service_state_changed_cb(serviceStateOf(control.mServiceState), VC_SERVICE_STATE_READY, user_data);
    }
}

void VoiceControl::_vc_service_state_changed_cb(vc_service_state_e previous, vc_service_state_e current,
                                                void* user_data) noexcept {
    LOGD("==== Service state is changed ====");
    LOGD("Previous(%s) -> Current(%s)", serviceStateName(previous), serviceStateName(current));
    VoiceControl& control = self(user_data);
    control.mServiceState = clientStateOf(current);
    if (control.mRecognitionStateCallback) {
        control.mRecognitionStateCallback(control.mServiceState, ErrorType::None);
    }
    control.stopTimeOutTimer();
    if (current == VC_SERVICE_STATE_RECORDING) {
        control.syncAppState(ClientState::Recording, ErrorType::None);
        control.startTimeOutTimer(RECORDING_TIMEOUT_S);
    } else if (current == VC_SERVICE_STATE_PROCESSING) {
        control.syncAppState(ClientState::Processing, ErrorType::None);
        control.startTimeOutTimer(PROCESSING_TIMEOUT_S);
    } else if (current == VC_SERVICE_STATE_READY &&
               (previous == VC_SERVICE_STATE_RECORDING || previous == VC_SERVICE_STATE_PROCESSING) &&
               !control.mErrorMessage.empty()) {
        control.syncAppState(ClientState::Error, errorTypeOf(control.mErrorMessage));
    }
}

// Only stores the message; it is reported when the service state returns to Ready.
void VoiceControl::_vc_error_cb(vc_error_e reason, void* user_data) noexcept {
    LOGE("==== vc error - %s ====", voiceErrorName(reason));
    char* text = nullptr;
    vc_mgr_get_error_message(&text);
    VoiceControl& control = self(user_data);
    control.mErrorMessage = Util::copied(Util::PlatformText(text));
    LOGE("Error Msg: [%s]", control.mErrorMessage.c_str());
}

void VoiceControl::notifySpeechDetected() {
    if (!mSpeechTimeOutArmed) {
        Util::AppControl::performAppControl(UiRequests::get().speechDetected);
    }
    startSpeechTimeOutTimer(SPEECH_TIMEOUT_S);
}

void VoiceControl::_vc_speech_detected_cb(void* user_data) noexcept {
    LOGD("==== Speech detected ====");
    self(user_data).notifySpeechDetected();
}

void VoiceControl::_vc_pre_result_cb(vc_pre_result_event_e event, const char* text, void* user_data) noexcept {
    const std::string received = text ? text : "";
    LOGD("==== Pre result cb ====");
    LOGD("Result Text - %s", received.c_str());
    VoiceControl& control = self(user_data);
    control.notifySpeechDetected();
    control.mPartialText = Util::trimmed(received);
    if (event == VC_PRE_RESULT_EVENT_ERROR) {
        LOGE("error");
        return;
    }
    if (control.mPartialResultCallback) {
        control.mPartialResultCallback(control.mPartialText, event == VC_PRE_RESULT_EVENT_FINAL);
    }
}

bool VoiceControl::_vc_all_result_cb(vc_result_event_e event, vc_cmd_list_s* list, const char* result, const char*,
                                     void* user_data) noexcept {
    VoiceControl& control = self(user_data);
    LOGD("==== All result cb ====");
    if (control.mResultHandled) {
        LOGW("Invalid result cb!");
        control.cancelRecognition(true, false);
        return false;
    }
    control.mResultHandled = true;
    control.mErrorMessage.clear();
    if (event == VC_RESULT_EVENT_REJECTED) {
        LOGD("Rejected event");
        control.syncAppState(ClientState::Error, ErrorType::Default);
        control.cancelRecognition(true, false);
        return false;
    }
    const std::string json = resultJson(result, list);
    control.syncAppState(ClientState::Ready, writeResultFile(json));
    return control.mResults.dispatch(json, list);
}

void VoiceControl::_vc_enabled_changed_cb(bool enabled, void*) noexcept {
    LOGD("Voice control enabled changed to (%d)", enabled);
}

void VoiceControl::_vc_language_changed_cb(const char* previous, const char* current, void*) noexcept {
    LOGD("Language is changed (%s) to (%s)", previous ? previous : "", current ? current : "");
}

}  // namespace OrvaneDA

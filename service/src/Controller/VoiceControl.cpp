// SPDX-License-Identifier: Apache-2.0
#include "Controller/VoiceControl.h"

#include <voice_control_setting.h>

#include <algorithm>

#include "Controller/PreloadedCommands.h"
#include "UiRequests.h"
#include "Util/AppControl.h"
#include "Util/Constants.h"
#include "Util/Languages.h"
#include "Util/Log.h"
#include "Util/Text.h"

namespace OrvaneDA {

namespace {

constexpr double RECORDING_TIMEOUT_S = 7.0;
constexpr double SPEECH_TIMEOUT_S = 10.0;
constexpr double PROCESSING_TIMEOUT_S = 30.0;
constexpr char DOMAIN_BANNER[] = "Orvane DA, Version 1.0, SDK 7.1";

// The recognition model of the last language set on the engine.
std::string lastModel;

const char* stateName(vc_state_e state) {
    switch (state) {
        case VC_STATE_NONE:
            return "None";
        case VC_STATE_INITIALIZED:
            return "Initialized";
        case VC_STATE_READY:
            return "Ready";
        default:
            return "UNKNOWN";
    }
}

const char* serviceStateName(vc_service_state_e state) {
    switch (state) {
        case VC_SERVICE_STATE_NONE:
            return "None";
        case VC_SERVICE_STATE_READY:
            return "Ready";
        case VC_SERVICE_STATE_RECORDING:
            return "Recording";
        case VC_SERVICE_STATE_PROCESSING:
            return "Processing";
        default:
            return "UNKNOWN";
    }
}

ClientState clientStateOf(vc_service_state_e state) {
    switch (state) {
        case VC_SERVICE_STATE_NONE:
            return ClientState::Idle;
        case VC_SERVICE_STATE_READY:
            return ClientState::Ready;
        case VC_SERVICE_STATE_RECORDING:
            return ClientState::Recording;
        case VC_SERVICE_STATE_PROCESSING:
            return ClientState::Processing;
        default:
            return ClientState::Unknown;
    }
}

vc_service_state_e serviceStateOf(ClientState state) {
    switch (state) {
        case ClientState::Recording:
            return VC_SERVICE_STATE_RECORDING;
        case ClientState::Ready:
            return VC_SERVICE_STATE_READY;
        case ClientState::Processing:
            return VC_SERVICE_STATE_PROCESSING;
        default:
            return VC_SERVICE_STATE_NONE;
    }
}

VoiceControl& self(void* userData) {
    return *static_cast<VoiceControl*>(userData);
}

}  // namespace

VoiceControl::VoiceControl() {
    preloadedCommandsPath();  // found now, used when the engine is ready
    initVoiceControl();
}

VoiceControl::~VoiceControl() {
    deinitVoiceControl();
    // A timer that still runs would come back to a session that is gone.
    stopTimeOutTimer();
}

bool VoiceControl::setLanguage(std::string lang) {
    const int result = vc_setting_set_language(lang.c_str());
    if (result != VC_ERROR_NONE) {
        LOGE("vc_setting_set_language: %s", voiceErrorName(result));
        return false;
    }
    const std::string model = Util::recognitionModelOf(lang);
    if (model != lastModel) {
        vc_mgr_set_private_data("Request", "reloadEngine");
    }
    lastModel = model;
    return true;
}

bool VoiceControl::isSupportedLang(std::string lang) {
    return std::find(mSupportedLanguages.begin(), mSupportedLanguages.end(), lang) != mSupportedLanguages.end();
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
    vc_mgr_set_command_list(mCommandList);
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
    if (result != VC_ERROR_NONE) {
        LOGE("[ERROR] Fail to stop");
    }
    return result;
}

int VoiceControl::cancelRecognition(bool, bool) {
    const int result = vc_mgr_cancel();
    if (result != VC_ERROR_NONE) {
        LOGE("[ERROR] Fail to cancel");
    }
    return result;
}

void VoiceControl::startTimeOutTimer(double seconds) {
    if (mTimer != nullptr) {
        return;
    }
    mTimer = ecore_timer_add(
        seconds,
        [](void* session) noexcept -> Eina_Bool {
            self(session).recognitionTimedOut();
            return ECORE_CALLBACK_CANCEL;
        },
        this);
}

void VoiceControl::stopTimeOutTimer() {
    if (mTimer != nullptr) {
        ecore_timer_del(mTimer);
    }
    mTimer = nullptr;
}

void VoiceControl::startSpeechTimeOutTimer(double seconds) {
    if (mSpeechTimeOutArmed.exchange(true)) {
        return;
    }
    stopTimeOutTimer();
    startTimeOutTimer(seconds);
}

// The timer ends by itself; its handle stays until the next change of the manager's state, as for a timer that runs.
void VoiceControl::recognitionTimedOut() {
    if (mServiceState == ClientState::Recording && !mPartialText.empty()) {
        stopRecognition(true);  // somebody has spoken: the result still comes
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

void VoiceControl::reportRecognitionState(const ClientState& state) {
    if (mRecognitionStateCallback) {
        mRecognitionStateCallback(state, ErrorType::None);
    }
}

void VoiceControl::_vc_state_changed_cb(vc_state_e previous, vc_state_e current, void* user_data) noexcept {
    LOGD("==== State is changed ====");
    LOGD("Previous(%s) -> Current(%s)", stateName(previous), stateName(current));
    if (current == VC_STATE_READY) {
        vc_mgr_set_domain(DOMAIN_BANNER);
        vc_mgr_set_preloaded_commands_from_file(preloadedCommandsPath().c_str());
    } else if (previous == VC_STATE_READY && current == VC_STATE_INITIALIZED) {
        LOGW("Re-Prepare Voice Control Engine");
        VoiceControl& session = self(user_data);
        session.syncAppState(ClientState::Error, ErrorType::Default);
        _vc_service_state_changed_cb(serviceStateOf(session.mServiceState), VC_SERVICE_STATE_READY, user_data);
    }
}

ErrorType VoiceControl::errorOfMessage() const {
    namespace RecogniserError = Constants::RecogniserError;
    static constexpr struct {
        const char* message;
        ErrorType error;
    } ERRORS[] = {{RecogniserError::SERVER_TIMED_OUT, ErrorType::ProcessingTimeout},
                  {RecogniserError::NETWORK_TIMEOUT, ErrorType::ProcessingTimeout},
                  {RecogniserError::CONNECTION_FAIL, ErrorType::ProcessingTimeout},
                  {RecogniserError::ASR_TIMED_OUT, ErrorType::ProcessingTimeout},
                  {RecogniserError::NLU_EXCEPTION, ErrorType::ServerCrashed},
                  {RecogniserError::UNKNOWN_ERROR, ErrorType::ServerCrashed},
                  {RecogniserError::SERVER_SIDE_PREPARE, ErrorType::ServerCrashed}};
    for (const auto& row : ERRORS) {
        if (mErrorMessage == row.message) {
            return row.error;
        }
    }
    return ErrorType::Default;
}

void VoiceControl::_vc_service_state_changed_cb(vc_service_state_e previous, vc_service_state_e current,
                                                void* user_data) noexcept {
    LOGD("==== Service state is changed ====");
    LOGD("Previous(%s) -> Current(%s)", serviceStateName(previous), serviceStateName(current));
    VoiceControl& session = self(user_data);
    session.mServiceState = clientStateOf(current);
    session.reportRecognitionState(session.mServiceState);
    session.stopTimeOutTimer();
    if (current == VC_SERVICE_STATE_RECORDING) {
        session.syncAppState(ClientState::Recording, ErrorType::None);
        session.startTimeOutTimer(RECORDING_TIMEOUT_S);
    } else if (current == VC_SERVICE_STATE_PROCESSING) {
        session.syncAppState(ClientState::Processing, ErrorType::None);
        session.startTimeOutTimer(PROCESSING_TIMEOUT_S);
    } else if (current == VC_SERVICE_STATE_READY &&
               (previous == VC_SERVICE_STATE_RECORDING || previous == VC_SERVICE_STATE_PROCESSING) &&
               !session.mErrorMessage.empty()) {
        session.syncAppState(ClientState::Error, session.errorOfMessage());
    }
}

// The message is judged when the service is back at Ready.
void VoiceControl::_vc_error_cb(vc_error_e reason, void* user_data) noexcept {
    LOGE("==== vc error - %s ====", voiceErrorName(reason));
    char* text = nullptr;
    vc_mgr_get_error_message(&text);
    VoiceControl& session = self(user_data);
    session.mErrorMessage = Util::copied(Util::PlatformText(text));
    LOGE("Error Msg: [%s]", session.mErrorMessage.c_str());
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
    const std::string heard = text ? text : "";
    LOGD("==== Pre result cb ====");
    LOGD("Result Text - %s", heard.c_str());
    VoiceControl& session = self(user_data);
    session.notifySpeechDetected();
    session.mPartialText = Util::trimmed(heard);
    if (event == VC_PRE_RESULT_EVENT_ERROR) {
        LOGE("error");
        return;
    }
    if (session.mPartialResultCallback) {
        session.mPartialResultCallback(session.mPartialText, event == VC_PRE_RESULT_EVENT_FINAL);
    }
}

void VoiceControl::_vc_enabled_changed_cb(bool enabled, void*) noexcept {
    LOGD("Voice control enabled changed to (%d)", enabled);
}

void VoiceControl::_vc_language_changed_cb(const char* previous, const char* current, void*) noexcept {
    LOGD("Language is changed (%s) to (%s)", previous ? previous : "", current ? current : "");
}

}  // namespace OrvaneDA

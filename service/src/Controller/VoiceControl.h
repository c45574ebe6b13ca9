// SPDX-License-Identifier: Apache-2.0
// The session with the platform's voice-control manager: engine and language, start, stop and cancel of a recognition
// under a time-out, and the way from the manager's callbacks to the service's reports. Main loop only.
#pragma once

#include <Ecore.h>
#include <orvane_da_parser.h>
#include <voice_control_manager.h>

#include <atomic>
#include <functional>
#include <string>
#include <vector>

#include "ClientState.h"
#include "Controller/VoiceStartMode.h"

namespace OrvaneDA {

class VoiceControl {
public:
    using PartialResultCallback = std::function<void(const std::string& text, bool isFinal)>;
    using StateCallback = std::function<void(const ClientState&, const ErrorType&)>;

    // Opens the session; a failure is logged and leaves the engine unusable until initVoiceControl succeeds.
    VoiceControl();
    virtual ~VoiceControl();
    VoiceControl(const VoiceControl&) = delete;
    VoiceControl& operator=(const VoiceControl&) = delete;

    void setPartialResultCallback(PartialResultCallback callback) { mPartialResultCallback = std::move(callback); }
    void setStateCallback(StateCallback callback) { mStateCallback = std::move(callback); }
    // Receives only the manager's service state, translated, with no error.
    void setRecognitionStateCallback(StateCallback callback) { mRecognitionStateCallback = std::move(callback); }

    // Done by the constructor. A second time only after a deinitVoiceControl, which closes what a failed one has
    // opened.
    void initVoiceControl();
    void deinitVoiceControl();

    bool setLanguage(std::string lang);
    bool isSupportedLang(std::string lang);
    // Platform error codes; mediaVolume goes to the engine as it is.
    int startRecognition(VoiceStartMode mode, std::string mediaVolume);
    int stopRecognition(bool);
    int cancelRecognition(bool, bool);

    void startTimeOutTimer(double seconds);
    void stopTimeOutTimer();
    // Replaces the running timer, once a recognition.
    void startSpeechTimeOutTimer(double seconds);

    void syncAppState(const ClientState& state, const ErrorType& error);

    // 0, or -1 on the first failure, which leaves the commands added before in the list.
    int createCommandList();
    void launchApps(vrp_response_data_s*& response);

    // The manager's callbacks; user_data is the VoiceControl.
    static void _vc_state_changed_cb(vc_state_e previous, vc_state_e current, void* user_data) noexcept;
    static void _vc_service_state_changed_cb(vc_service_state_e previous, vc_service_state_e current,
                                             void* user_data) noexcept;
    static bool _vc_all_result_cb(vc_result_event_e event, vc_cmd_list_s* list, const char* result, const char* message,
                                  void* user_data) noexcept;
    static void _vc_pre_result_cb(vc_pre_result_event_e event, const char* text, void* user_data) noexcept;
    static void _vc_error_cb(vc_error_e reason, void* user_data) noexcept;
    static void _vc_speech_detected_cb(void* user_data) noexcept;
    static void _vc_enabled_changed_cb(bool enabled, void* user_data) noexcept;
    static void _vc_language_changed_cb(const char* previous, const char* current, void* user_data) noexcept;

private:
    bool initSetting();
    bool setManagerCallbacks();
    void reportRecognitionState(const ClientState& state);
    ErrorType errorOfMessage() const;
    void recognitionTimedOut();
    void notifySpeechDetected();
    std::string resultJson(const char* text, vc_cmd_list_s* list);
    ErrorType writeResult(const std::string& json);
    bool dispatch(vrp_response_data_s*& response, vc_cmd_list_s* list);
    void routeRecipe(vrp_recipe_data_s* recipe, const std::string& actionName, vc_cmd_list_s* list);
    bool addCommand(const char* text);

    PartialResultCallback mPartialResultCallback;
    StateCallback mStateCallback;
    StateCallback mRecognitionStateCallback;
    Ecore_Timer* mTimer = nullptr;
    vc_cmd_list_s* mCommandList = nullptr;
    ClientState mServiceState = ClientState::Unknown;  // the manager's, translated
    std::string mPartialText;
    std::string mErrorMessage;
    std::vector<std::string> mSupportedLanguages;
    std::atomic<bool> mSpeechTimeOutArmed{false};
    std::atomic<bool> mResultHandled{false};
};

// "NONE" to "EMPTY"; "VC_ERROR_UNKNOWN" for any other code.
const char* voiceErrorName(int error);

}  // namespace OrvaneDA

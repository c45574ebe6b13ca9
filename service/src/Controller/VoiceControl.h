// SPDX-License-Identifier: Apache-2.0
// Speech recognition through the platform's voice-control manager. Manages the connection and the language; starts,
// stops, and cancels recognition sessions, which have a timeout; and reports the manager's callbacks. Main loop only.
#pragma once

#include <orvane_da_parser.h>
#include <voice_control_manager.h>

#include <atomic>
#include <functional>
#include <string>
#include <utility>

#include "ClientState.h"
#include "Controller/Voice/CommandList.h"
#include "Controller/Voice/RecognitionTimer.h"
#include "Controller/Voice/ResultDispatcher.h"
#include "Controller/Voice/VoiceManager.h"
#include "Controller/VoiceStartMode.h"

namespace OrvaneDA {

class VoiceControl {
public:
    using PartialResultCallback = std::function<void(const std::string& text, bool isFinal)>;
    using StateCallback = std::function<void(const ClientState&, const ErrorType&)>;

    VoiceControl();
    virtual ~VoiceControl();
    VoiceControl(const VoiceControl&) = delete;
    VoiceControl& operator=(const VoiceControl&) = delete;

    void setPartialResultCallback(PartialResultCallback callback) { mPartialResultCallback = std::move(callback); }
    void setStateCallback(StateCallback callback) { mStateCallback = std::move(callback); }
    // Receives only the manager's translated service state, without an error.
    void setRecognitionStateCallback(StateCallback callback) { mRecognitionStateCallback = std::move(callback); }

    // The constructor calls this. After a failure, which is logged, the engine cannot be used until another call
    // succeeds. Before that call, deinitVoiceControl must close whatever the failed call opened.
    void initVoiceControl();
    void deinitVoiceControl();

    bool setLanguage(std::string lang);
    bool isSupportedLang(std::string lang);
    // These return the platform's code. The media volume is passed to the engine unchanged.
    int startRecognition(VoiceStartMode mode, std::string mediaVolume);
    int stopRecognition(bool);
    int cancelRecognition(bool, bool);

    void startTimeOutTimer(double seconds);
    void stopTimeOutTimer();
    // Replaces the running timer. Only the first call in a recognition session has an effect.
    void startSpeechTimeOutTimer(double seconds);

    void syncAppState(const ClientState& state, const ErrorType& error);

    // Returns 0, or -1 at the first failure, which leaves the commands added so far in the list.
    int createCommandList();
    void launchApps(vrp_response_data_s*& response);

    // The manager's callbacks; `user_data` is the VoiceControl.
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
    void recognitionTimedOut();
    void notifySpeechDetected();

    // The recognition model of the language last set on the engine, which outlives this object.
    static inline std::string sLastModel;

    PartialResultCallback mPartialResultCallback;
    StateCallback mStateCallback;
    StateCallback mRecognitionStateCallback;
    RecognitionTimer mTimer;
    CommandList mCommands;
    ClientState mServiceState = ClientState::Unknown;  // the manager's, translated
    std::string mPartialText;
    std::string mErrorMessage;
    VoiceManager mManager;
    ResultDispatcher mResults;
    std::atomic<bool> mSpeechTimeOutArmed{false};
    std::atomic<bool> mResultHandled{false};
};

}  // namespace OrvaneDA

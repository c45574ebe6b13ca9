// SPDX-License-Identifier: Apache-2.0
// Set and unset the callbacks of the voice-control interface.
#include "ManagerCall.h"
#include "voice_control_manager.h"

namespace {

using voice::Callbacks;

template <typename Function>
int set(const char* name, voice::Callback<Function> Callbacks::*member, Function callback, void* userData) noexcept {
    return voice::callManager(name, [&](voice::Manager& manager) {
        manager.callbacks.*member = {callback, userData};
        return VC_ERROR_NONE;
    });
}

template <typename Function>
int setGiven(const char* name, voice::Callback<Function> Callbacks::*member, Function callback,
             void* userData) noexcept {
    return callback ? set(name, member, callback, userData) : VC_ERROR_INVALID_PARAMETER;
}

}  // namespace

extern "C" {

int vc_mgr_set_state_changed_cb(vc_state_changed_cb callback, void* user_data) {
    return setGiven(__func__, &Callbacks::state, callback, user_data);
}
int vc_mgr_unset_state_changed_cb(void) {
    return set<vc_state_changed_cb>(__func__, &Callbacks::state, nullptr, nullptr);
}

int vc_mgr_set_service_state_changed_cb(vc_mgr_service_state_changed_cb callback, void* user_data) {
    return setGiven(__func__, &Callbacks::serviceState, callback, user_data);
}
int vc_mgr_unset_service_state_changed_cb(void) {
    return set<vc_mgr_service_state_changed_cb>(__func__, &Callbacks::serviceState, nullptr, nullptr);
}

int vc_mgr_set_all_result_cb(vc_mgr_all_result_cb callback, void* user_data) {
    return setGiven(__func__, &Callbacks::allResult, callback, user_data);
}
int vc_mgr_unset_all_result_cb(void) {
    return set<vc_mgr_all_result_cb>(__func__, &Callbacks::allResult, nullptr, nullptr);
}

int vc_mgr_set_pre_result_cb(vc_mgr_pre_result_cb callback, void* user_data) {
    return setGiven(__func__, &Callbacks::preResult, callback, user_data);
}
int vc_mgr_unset_pre_result_cb(void) {
    return set<vc_mgr_pre_result_cb>(__func__, &Callbacks::preResult, nullptr, nullptr);
}

int vc_mgr_set_error_cb(vc_error_cb callback, void* user_data) {
    return setGiven(__func__, &Callbacks::error, callback, user_data);
}
int vc_mgr_unset_error_cb(void) {
    return set<vc_error_cb>(__func__, &Callbacks::error, nullptr, nullptr);
}

int vc_mgr_set_speech_detected_cb(vc_mgr_speech_detected_cb callback, void* user_data) {
    return setGiven(__func__, &Callbacks::speechDetected, callback, user_data);
}
int vc_mgr_unset_speech_detected_cb(void) {
    return set<vc_mgr_speech_detected_cb>(__func__, &Callbacks::speechDetected, nullptr, nullptr);
}

int vc_mgr_set_current_language_changed_cb(vc_current_language_changed_cb callback, void* user_data) {
    return setGiven(__func__, &Callbacks::languageChanged, callback, user_data);
}
int vc_mgr_unset_current_language_changed_cb(void) {
    return set<vc_current_language_changed_cb>(__func__, &Callbacks::languageChanged, nullptr, nullptr);
}
}

// SPDX-License-Identifier: Apache-2.0
#include "fake/voice/FakeVoice.h"

#include <string.h>
#include <voice_control_setting.h>

#include "fake/Platform.h"

using fake::platform;
using fake::str;

namespace {

template <typename Callback>
struct Slot {
    Callback callback = nullptr;
    void* userData = nullptr;
};

struct State {
    bool enabled = true;
    std::vector<std::string> languages{"en_US"};
    std::string errorMessage;
    Slot<vc_state_changed_cb> state;
    Slot<vc_mgr_service_state_changed_cb> serviceState;
    Slot<vc_mgr_all_result_cb> allResult;
    Slot<vc_mgr_pre_result_cb> preResult;
    Slot<vc_error_cb> error;
    Slot<vc_mgr_speech_detected_cb> speech;
    Slot<vc_current_language_changed_cb> language;
    Slot<vc_setting_enabled_changed_cb> enabledChanged;
} state;

const bool registered = platform().addReset([] { state = State{}; });

}  // namespace

namespace fake {

void setVoiceEnabled(bool enabled) {
    state.enabled = enabled;
}
void setSupportedLanguages(const std::vector<std::string>& languages) {
    state.languages = languages;
}
void setVoiceErrorMessage(const std::string& message) {
    state.errorMessage = message;
}
void voiceState(vc_state_e previous, vc_state_e current) {
    state.state.callback(previous, current, state.state.userData);
}
void serviceState(vc_service_state_e previous, vc_service_state_e current) {
    state.serviceState.callback(previous, current, state.serviceState.userData);
}
bool allResult(vc_result_event_e event, vc_cmd_list_s& list, const char* text) {
    return state.allResult.callback(event, &list, text, "message", state.allResult.userData);
}
void preResult(vc_pre_result_event_e event, const char* text) {
    state.preResult.callback(event, text, state.preResult.userData);
}
void voiceError(vc_error_e reason) {
    state.error.callback(reason, state.error.userData);
}
void speechDetected() {
    state.speech.callback(state.speech.userData);
}
void voiceEnabledChanged(bool enabled) {
    state.enabledChanged.callback(enabled, state.enabledChanged.userData);
}
void voiceLanguageChanged(const char* previous, const char* current) {
    state.language.callback(previous, current, state.language.userData);
}
}  // namespace fake

extern "C" {

int vc_mgr_initialize(void) {
    return platform().call("vc_mgr_initialize");
}
int vc_mgr_deinitialize(void) {
    return platform().call("vc_mgr_deinitialize");
}
int vc_mgr_prepare(void) {
    return platform().call("vc_mgr_prepare");
}

int vc_mgr_foreach_supported_languages(vc_supported_language_cb callback, void* user_data) {
    const int result = platform().call("vc_mgr_foreach_supported_languages");
    for (const std::string& language : state.languages) {
        if (result != 0 || !callback(language.c_str(), user_data)) {
            break;
        }
    }
    return result;
}

#define FAKE_CALLBACK(name, type, slot)                          \
    int vc_mgr_set_##name##_cb(type callback, void* user_data) { \
        state.slot = {callback, user_data};                      \
        return platform().call("vc_mgr_set_" #name "_cb");       \
    }                                                            \
    int vc_mgr_unset_##name##_cb(void) {                         \
        state.slot = {};                                         \
        return platform().call("vc_mgr_unset_" #name "_cb");     \
    }

FAKE_CALLBACK(state_changed, vc_state_changed_cb, state)
FAKE_CALLBACK(service_state_changed, vc_mgr_service_state_changed_cb, serviceState)
FAKE_CALLBACK(all_result, vc_mgr_all_result_cb, allResult)
FAKE_CALLBACK(pre_result, vc_mgr_pre_result_cb, preResult)
FAKE_CALLBACK(error, vc_error_cb, error)
FAKE_CALLBACK(speech_detected, vc_mgr_speech_detected_cb, speech)
FAKE_CALLBACK(current_language_changed, vc_current_language_changed_cb, language)

int vc_mgr_set_domain(const char* domain) {
    return platform().call("vc_mgr_set_domain", {domain});
}

int vc_mgr_set_preloaded_commands_from_file(const char* path) {
    return platform().call("vc_mgr_set_preloaded_commands_from_file", {path});
}

int vc_mgr_set_private_data(const char* key, const char* data) {
    return platform().call("vc_mgr_set_private_data", {key, data});
}

int vc_mgr_set_recognition_mode(vc_recognition_mode_e mode) {
    return platform().call("vc_mgr_set_recognition_mode", {str(static_cast<int>(mode))});
}

int vc_mgr_set_command_list(vc_cmd_list_h list) {
    return platform().call("vc_mgr_set_command_list", {list ? list->text() : "null"});
}
int vc_mgr_unset_command_list(void) {
    return platform().call("vc_mgr_unset_command_list");
}
int vc_mgr_start(bool exclusive) {
    return platform().call("vc_mgr_start", {str(int{exclusive})});
}
int vc_mgr_stop(void) {
    return platform().call("vc_mgr_stop");
}
int vc_mgr_cancel(void) {
    return platform().call("vc_mgr_cancel");
}

int vc_mgr_set_selected_results(vc_cmd_list_h list) {
    return platform().call("vc_mgr_set_selected_results", {list->text()});
}

int vc_mgr_get_error_message(char** message) {
    *message = strdup(state.errorMessage.c_str());
    return platform().call("vc_mgr_get_error_message");
}

int vc_setting_initialize(void) {
    return platform().call("vc_setting_initialize");
}
int vc_setting_deinitialize(void) {
    return platform().call("vc_setting_deinitialize");
}

int vc_setting_get_enabled(bool* enabled) {
    *enabled = state.enabled;
    return platform().call("vc_setting_get_enabled");
}

int vc_setting_set_enabled_changed_cb(vc_setting_enabled_changed_cb callback, void* user_data) {
    state.enabledChanged = {callback, user_data};
    return platform().call("vc_setting_set_enabled_changed_cb");
}

int vc_setting_get_language(char** language) {
    *language = strdup("en_US");
    return platform().call("vc_setting_get_language");
}

int vc_setting_set_language(const char* language) {
    return platform().call("vc_setting_set_language", {language});
}

int vc_setting_set_auto_language(bool enable) {
    return platform().call("vc_setting_set_auto_language", {str(int{enable})});
}

}  // extern "C"

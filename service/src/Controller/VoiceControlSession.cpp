// SPDX-License-Identifier: Apache-2.0
// Opening and closing the session with the voice-control manager, and the list of commands that the service handles
// itself.
#include <tzplatform_config.h>
#include <voice_control_setting.h>

#include "Controller/PreloadedCommands.h"
#include "Controller/VoiceControl.h"
#include "Util/Constants.h"
#include "Util/Log.h"
#include "Util/Text.h"

namespace OrvaneDA {

const std::string& preloadedCommandsPath() {
    static const std::string path = [] {
        const char* made = tzplatform_mkpath(TZPLATFORM_DATA_ROOT, Constants::File::PRELOADED_COMMANDS);
        return std::string(made ? made : "");
    }();
    return path;
}

namespace {

// The log names the place of the call that failed.
bool succeeded(int result, const char* message, const char* function = __builtin_FUNCTION(),
               int line = __builtin_LINE()) {
    if (result != VC_ERROR_NONE) {
        LOGE_AT(function, line, "%s", message);
    }
    return result == VC_ERROR_NONE;
}

void logFailure(const char* call, int result, const char* function = __builtin_FUNCTION(),
                int line = __builtin_LINE()) {
    if (result != VC_ERROR_NONE) {
        LOGE_AT(function, line, "%s: %s", call, voiceErrorName(result));
    }
}

bool addLanguage(const char* language, void* list) noexcept {
    LOGD("supported lang: %s", language);
    static_cast<std::vector<std::string>*>(list)->push_back(language);
    return true;
}

}  // namespace

bool VoiceControl::initSetting() {
    if (!succeeded(vc_setting_initialize(), "Fail to init")) {
        return false;
    }
    bool enabled = false;
    if (!succeeded(vc_setting_get_enabled(&enabled), "Fail to get enabled")) {
        return false;
    }
    if (!enabled) {
        LOGE("Voice control is disabled");
        return false;
    }
    if (!succeeded(vc_setting_set_enabled_changed_cb(_vc_enabled_changed_cb, this), "Fail to set enabled cb")) {
        return false;
    }
    char* text = nullptr;
    const int result = vc_setting_get_language(&text);
    const Util::PlatformText language(text);
    if (!succeeded(result, "Fail to get language")) {
        return false;
    }
    LOGD("vc lang : %s", language.get());
    // The service drives the engine's language, never the platform.
    return succeeded(vc_setting_set_auto_language(false), "Fail to auto language set false") &&
           succeeded(vc_setting_set_language(language.get()), "Fail to set language");
}

bool VoiceControl::setManagerCallbacks() {
    return succeeded(vc_mgr_set_state_changed_cb(_vc_state_changed_cb, this), "[ERROR] Fail to set state changed cb") &&
           succeeded(vc_mgr_set_service_state_changed_cb(_vc_service_state_changed_cb, this),
                     "[ERROR] Fail to set service state changed cb") &&
           succeeded(vc_mgr_set_all_result_cb(_vc_all_result_cb, this), "[ERROR] Fail to set all result cb") &&
           succeeded(vc_mgr_set_pre_result_cb(_vc_pre_result_cb, this), "[ERROR] Fail to set pre result cb") &&
           succeeded(vc_mgr_set_error_cb(_vc_error_cb, this), "[ERROR] Fail to set error cb") &&
           succeeded(vc_mgr_set_speech_detected_cb(_vc_speech_detected_cb, this),
                     "[ERROR] Fail to set speech detected cb") &&
           succeeded(vc_mgr_set_current_language_changed_cb(_vc_language_changed_cb, this),
                     "[ERROR] Fail to set language changed cb");
}

// What a failed initialisation has opened is closed by deinitVoiceControl.
void VoiceControl::initVoiceControl() {
    if (!initSetting() || !succeeded(vc_mgr_initialize(), "[ERROR] Fail to initialize")) {
        return;
    }
    succeeded(vc_mgr_foreach_supported_languages(addLanguage, &mSupportedLanguages), "Fail to foreach supported lang");
    if (!setManagerCallbacks() || !succeeded(vc_mgr_prepare(), "[ERROR] Fail to prepare")) {
        return;
    }
    succeeded(createCommandList(), "[ERROR] Fail to create command list");
}

void VoiceControl::deinitVoiceControl() {
    vc_mgr_unset_command_list();
    logFailure("vc_cmd_list_destroy", vc_cmd_list_destroy(mCommandList, true));
    mCommandList = nullptr;
    vc_mgr_unset_state_changed_cb();
    vc_mgr_unset_service_state_changed_cb();
    vc_mgr_unset_all_result_cb();
    vc_mgr_unset_pre_result_cb();
    vc_mgr_unset_error_cb();
    vc_mgr_unset_speech_detected_cb();
    vc_mgr_unset_current_language_changed_cb();
    logFailure("vc_mgr_deinitialize", vc_mgr_deinitialize());
    logFailure("vc_setting_deinitialize", vc_setting_deinitialize());
}

bool VoiceControl::addCommand(const char* text) {
    vc_cmd_h command = nullptr;
    if (!succeeded(vc_cmd_create(&command), "[ERROR] Fail to cmd create")) {
        return false;
    }
    if (succeeded(vc_cmd_set_command(command, text), "[ERROR] Fail to set command") &&
        succeeded(vc_cmd_set_type(command, VC_CMD_TYPE_SYSTEM), "[ERROR] Fail to set type") &&
        succeeded(vc_cmd_set_format(command, VC_CMD_FORMAT_DOMAIN), "[ERROR] Fail to set format") &&
        succeeded(vc_cmd_list_add(mCommandList, command), "[ERROR] Fail to list add")) {
        return true;
    }
    vc_cmd_destroy(command);
    return false;
}

int VoiceControl::createCommandList() {
    LOGD("==== Create Command List ====");
    if (!succeeded(vc_cmd_list_create(&mCommandList), "[ERROR] Fail to cmd list create")) {
        return -1;
    }
    for (const char* text : {"#org.tizen.weather", "#org.tizen.clock", "#org.tizen.launch apps", "#org.tizen.system",
                             "#org.tizen.websearch"}) {
        if (!addCommand(text)) {
            return -1;
        }
    }
    return 0;
}

}  // namespace OrvaneDA

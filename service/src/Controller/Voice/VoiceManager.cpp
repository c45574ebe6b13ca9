// SPDX-License-Identifier: Apache-2.0
#include "Controller/Voice/VoiceManager.h"

#include <algorithm>

#include "Controller/Voice/VoiceErrors.h"
#include "Util/Text.h"

namespace OrvaneDA {

namespace {

using Util::succeededOrLogged;

bool addLanguage(const char* language, void* languages) noexcept {
    LOGD("supported lang: %s", language);
    static_cast<std::vector<std::string>*>(languages)->push_back(language);
    return true;
}

}  // namespace

bool VoiceManager::open(const Util::Caller& caller) {
    if (!openSettings(caller) || !succeededOrLogged(vc_mgr_initialize(), "[ERROR] Fail to initialize", caller)) {
        return false;
    }
    succeededOrLogged(vc_mgr_foreach_supported_languages(addLanguage, &mSupportedLanguages),
                      "Fail to foreach supported lang", caller);
    return setCallbacks(caller) && succeededOrLogged(vc_mgr_prepare(), "[ERROR] Fail to prepare", caller);
}

bool VoiceManager::openSettings(const Util::Caller& caller) {
    bool enabled = false;
    if (!succeededOrLogged(vc_setting_initialize(), "Fail to init", caller) ||
        !succeededOrLogged(vc_setting_get_enabled(&enabled), "Fail to get enabled", caller)) {
        return false;
    }
    if (!enabled) {
        LOGE_FOR(caller, "Voice control is disabled");
        return false;
    }
    return succeededOrLogged(vc_setting_set_enabled_changed_cb(mCallbacks.enabledChanged, mCallbacks.userData),
                             "Fail to set enabled cb", caller) &&
           setLanguageOfSettings(caller);
}

// The engine starts in the language of the settings. After that, the service sets the language, not the platform.
bool VoiceManager::setLanguageOfSettings(const Util::Caller& caller) {
    char* text = nullptr;
    const int result = vc_setting_get_language(&text);
    const Util::PlatformText language(text);
    if (!succeededOrLogged(result, "Fail to get language", caller)) {
        return false;
    }
    LOGD_FOR(caller, "vc lang : %s", language.get());
    return succeededOrLogged(vc_setting_set_auto_language(false), "Fail to auto language set false", caller) &&
           succeededOrLogged(vc_setting_set_language(language.get()), "Fail to set language", caller);
}

bool VoiceManager::setCallbacks(const Util::Caller& caller) {
    void* const data = mCallbacks.userData;
    return succeededOrLogged(vc_mgr_set_state_changed_cb(mCallbacks.stateChanged, data),
                             "[ERROR] Fail to set state changed cb", caller) &&
           succeededOrLogged(vc_mgr_set_service_state_changed_cb(mCallbacks.serviceStateChanged, data),
                             "[ERROR] Fail to set service state changed cb", caller) &&
           succeededOrLogged(vc_mgr_set_all_result_cb(mCallbacks.allResult, data), "[ERROR] Fail to set all result cb",
                             caller) &&
           succeededOrLogged(vc_mgr_set_pre_result_cb(mCallbacks.preResult, data), "[ERROR] Fail to set pre result cb",
                             caller) &&
           succeededOrLogged(vc_mgr_set_error_cb(mCallbacks.error, data), "[ERROR] Fail to set error cb", caller) &&
           succeededOrLogged(vc_mgr_set_speech_detected_cb(mCallbacks.speechDetected, data),
                             "[ERROR] Fail to set speech detected cb", caller) &&
           succeededOrLogged(vc_mgr_set_current_language_changed_cb(mCallbacks.languageChanged, data),
                             "[ERROR] Fail to set language changed cb", caller);
}

void VoiceManager::close(const Util::Caller& caller) {
    vc_mgr_unset_state_changed_cb();
    vc_mgr_unset_service_state_changed_cb();
    vc_mgr_unset_all_result_cb();
    vc_mgr_unset_pre_result_cb();
    vc_mgr_unset_error_cb();
    vc_mgr_unset_speech_detected_cb();
    vc_mgr_unset_current_language_changed_cb();
    logIfFailed("vc_mgr_deinitialize", vc_mgr_deinitialize(), caller);
    logIfFailed("vc_setting_deinitialize", vc_setting_deinitialize(), caller);
}

bool VoiceManager::supports(const std::string& language) const {
    return std::find(mSupportedLanguages.begin(), mSupportedLanguages.end(), language) != mSupportedLanguages.end();
}

}  // namespace OrvaneDA

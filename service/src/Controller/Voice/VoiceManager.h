// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <voice_control_manager.h>
#include <voice_control_setting.h>

#include <string>
#include <vector>

#include "Util/Log.h"

namespace OrvaneDA {

// The connection to the platform's voice-control settings and manager. Logs failures for the caller. Main loop only.
class VoiceManager {
public:
    // Called from open() to close(), with the same user data.
    struct Callbacks {
        vc_setting_enabled_changed_cb enabledChanged;
        vc_state_changed_cb stateChanged;
        vc_mgr_service_state_changed_cb serviceStateChanged;
        vc_mgr_all_result_cb allResult;
        vc_mgr_pre_result_cb preResult;
        vc_error_cb error;
        vc_mgr_speech_detected_cb speechDetected;
        vc_current_language_changed_cb languageChanged;
        void* userData;
    };

    explicit VoiceManager(const Callbacks& callbacks) : mCallbacks(callbacks) {}
    VoiceManager(const VoiceManager&) = delete;
    VoiceManager& operator=(const VoiceManager&) = delete;

    // Stops at the first failure and returns false; `close` then closes whatever is open. When this returns true, the
    // engine is not yet ready.
    bool open(const Util::Caller& caller = Util::Caller::current());
    void close(const Util::Caller& caller = Util::Caller::current());

    bool supports(const std::string& language) const;

private:
    bool openSettings(const Util::Caller& caller);
    bool setLanguageOfSettings(const Util::Caller& caller);
    bool setCallbacks(const Util::Caller& caller);

    const Callbacks mCallbacks;
    std::vector<std::string> mSupportedLanguages;
};

}  // namespace OrvaneDA

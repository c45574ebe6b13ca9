// SPDX-License-Identifier: Apache-2.0
// The callbacks of the voice-control interface with their user data.
#pragma once

#include "voice_control_manager.h"

namespace voice {

template <typename Function>
struct Callback {
    Function function = nullptr;
    void* userData = nullptr;

    explicit operator bool() const { return function != nullptr; }
    template <typename... Arguments>
    auto operator()(Arguments... arguments) const {
        return function(arguments..., userData);
    }
};

struct Callbacks {
    Callback<vc_state_changed_cb> state;
    Callback<vc_mgr_service_state_changed_cb> serviceState;
    Callback<vc_mgr_all_result_cb> allResult;
    Callback<vc_mgr_pre_result_cb> preResult;
    Callback<vc_error_cb> error;
    Callback<vc_mgr_speech_detected_cb> speechDetected;
    Callback<vc_current_language_changed_cb> languageChanged;
};

}  // namespace voice

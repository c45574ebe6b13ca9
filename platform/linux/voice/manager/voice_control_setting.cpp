// SPDX-License-Identifier: Apache-2.0
#include "voice_control_setting.h"

#include <cstring>

#include "Settings.h"
#include "process/Guard.h"

namespace {

bool initialized = false;

// Calls `body` with the settings and returns its code.
template <typename Body>
int callSettings(const char* function, const Body& body) noexcept {
    return process::guarded(process::Failures<int>{VC_ERROR_OPERATION_FAILED, VC_ERROR_OUT_OF_MEMORY}, function,
                            [&body]() -> int { return body(process::shared<voice::Settings>()); });
}

template <typename Body>
int callInitialized(const char* function, const Body& body) noexcept {
    return initialized ? callSettings(function, body) : VC_ERROR_INVALID_STATE;
}

}  // namespace

extern "C" {

int vc_setting_initialize(void) {
    return callSettings(__func__, [](voice::Settings& settings) {
        if (!initialized) {
            settings.refresh();
            initialized = true;
        }
        return VC_ERROR_NONE;
    });
}

int vc_setting_deinitialize(void) {
    const bool was = initialized;
    initialized = false;
    return was ? VC_ERROR_NONE : VC_ERROR_INVALID_STATE;
}

int vc_setting_get_enabled(bool* enabled) {
    if (!enabled) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    // This platform has no switch to disable voice control.
    *enabled = true;
    return initialized ? VC_ERROR_NONE : VC_ERROR_INVALID_STATE;
}

int vc_setting_set_enabled_changed_cb(vc_setting_enabled_changed_cb callback, void*) {
    return callback ? VC_ERROR_NONE : VC_ERROR_INVALID_PARAMETER;
}

int vc_setting_get_language(char** language) {
    if (!language) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    return callInitialized(__func__, [language](const voice::Settings& settings) {
        *language = strdup(settings.current().id.c_str());
        return *language ? VC_ERROR_NONE : VC_ERROR_OUT_OF_MEMORY;
    });
}

int vc_setting_set_language(const char* language) {
    if (!language) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    return callInitialized(__func__, [language](voice::Settings& settings) {
        return settings.select(language) ? VC_ERROR_NONE : VC_ERROR_INVALID_LANGUAGE;
    });
}

int vc_setting_set_auto_language(bool enable) {
    // This platform has no language setting that voice control could follow.
    return enable ? VC_ERROR_NOT_SUPPORTED : VC_ERROR_NONE;
}
}

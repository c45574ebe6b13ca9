// SPDX-License-Identifier: Apache-2.0
#include "voice_control_setting.h"

#include <cstring>

#include "Settings.h"

namespace {

bool initialised = false;

}  // namespace

extern "C" {

int vc_setting_initialize(void) {
    if (!initialised) {
        voice::Settings::get().refresh();
        initialised = true;
    }
    return VC_ERROR_NONE;
}

int vc_setting_deinitialize(void) {
    const bool was = initialised;
    initialised = false;
    return was ? VC_ERROR_NONE : VC_ERROR_INVALID_STATE;
}

int vc_setting_get_enabled(bool* enabled) {
    if (!enabled) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    // A plain machine has no switch for voice control: who does not want it does not run the service.
    *enabled = true;
    return initialised ? VC_ERROR_NONE : VC_ERROR_INVALID_STATE;
}

int vc_setting_set_enabled_changed_cb(vc_setting_enabled_changed_cb callback, void*) {
    return callback ? VC_ERROR_NONE : VC_ERROR_INVALID_PARAMETER;
}

int vc_setting_get_language(char** language) {
    if (!language) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    if (!initialised) {
        return VC_ERROR_INVALID_STATE;
    }
    *language = strdup(voice::Settings::get().current().id.c_str());
    return *language ? VC_ERROR_NONE : VC_ERROR_OUT_OF_MEMORY;
}

int vc_setting_set_language(const char* language) {
    if (!language) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    if (!initialised) {
        return VC_ERROR_INVALID_STATE;
    }
    return voice::Settings::get().select(language) ? VC_ERROR_NONE : VC_ERROR_INVALID_LANGUAGE;
}

int vc_setting_set_auto_language(bool enable) {
    // There is no language of the platform's own to follow.
    return enable ? VC_ERROR_NOT_SUPPORTED : VC_ERROR_NONE;
}
}

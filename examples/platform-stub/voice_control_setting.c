/* SPDX-License-Identifier: Apache-2.0 */
/* There is no recognizer. */
#include <voice_control_setting.h>

int vc_setting_initialize(void) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_setting_deinitialize(void) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_setting_get_enabled(bool* enabled) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_setting_set_enabled_changed_cb(vc_setting_enabled_changed_cb callback, void* user_data) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_setting_get_language(char** language) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_setting_set_language(const char* language) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_setting_set_auto_language(bool enable) {
    return VC_ERROR_NOT_SUPPORTED;
}

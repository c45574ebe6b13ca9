/* SPDX-License-Identifier: Apache-2.0 */
/* There is no recognizer. */
#include <voice_control_manager.h>

int vc_mgr_initialize(void) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_deinitialize(void) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_prepare(void) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_foreach_supported_languages(vc_supported_language_cb callback, void* user_data) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_set_state_changed_cb(vc_state_changed_cb callback, void* user_data) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_unset_state_changed_cb(void) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_set_service_state_changed_cb(vc_mgr_service_state_changed_cb callback, void* user_data) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_unset_service_state_changed_cb(void) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_set_all_result_cb(vc_mgr_all_result_cb callback, void* user_data) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_unset_all_result_cb(void) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_set_pre_result_cb(vc_mgr_pre_result_cb callback, void* user_data) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_unset_pre_result_cb(void) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_set_error_cb(vc_error_cb callback, void* user_data) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_unset_error_cb(void) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_set_speech_detected_cb(vc_mgr_speech_detected_cb callback, void* user_data) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_unset_speech_detected_cb(void) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_set_current_language_changed_cb(vc_current_language_changed_cb callback, void* user_data) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_unset_current_language_changed_cb(void) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_set_domain(const char* domain) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_set_preloaded_commands_from_file(const char* path) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_set_private_data(const char* key, const char* data) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_set_recognition_mode(vc_recognition_mode_e mode) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_set_command_list(vc_cmd_list_h list) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_unset_command_list(void) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_start(bool exclusive_command_option) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_stop(void) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_cancel(void) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_set_selected_results(vc_cmd_list_h list) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_mgr_get_error_message(char** message) {
    return VC_ERROR_NOT_SUPPORTED;
}

/* SPDX-License-Identifier: Apache-2.0 */
/* There is no recognizer. */
#include <voice_control_common.h>

int vc_cmd_create(vc_cmd_h* command) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_cmd_destroy(vc_cmd_h command) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_cmd_set_command(vc_cmd_h command, const char* text) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_cmd_set_type(vc_cmd_h command, vc_cmd_type_e type) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_cmd_set_format(vc_cmd_h command, vc_cmd_format_e format) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_cmd_get_pid(vc_cmd_h command, int* pid) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_cmd_get_nlu_json(vc_cmd_h command, char** json) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_cmd_list_create(vc_cmd_list_h* list) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_cmd_list_destroy(vc_cmd_list_h list, bool release_command) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_cmd_list_add(vc_cmd_list_h list, vc_cmd_h command) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_cmd_list_remove(vc_cmd_list_h list, vc_cmd_h command) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_cmd_list_first(vc_cmd_list_h list) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_cmd_list_next(vc_cmd_list_h list) {
    return VC_ERROR_NOT_SUPPORTED;
}

int vc_cmd_list_get_current(vc_cmd_list_h list, vc_cmd_h* command) {
    return VC_ERROR_NOT_SUPPORTED;
}

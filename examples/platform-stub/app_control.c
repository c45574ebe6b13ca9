/* SPDX-License-Identifier: Apache-2.0 */
/* No application can be reached. */
#include <app_control.h>

int app_control_create(app_control_h* app_control) {
    return APP_CONTROL_ERROR_IO_ERROR;
}

int app_control_destroy(app_control_h app_control) {
    return APP_CONTROL_ERROR_IO_ERROR;
}

int app_control_set_app_id(app_control_h app_control, const char* app_id) {
    return APP_CONTROL_ERROR_IO_ERROR;
}

int app_control_set_operation(app_control_h app_control, const char* operation) {
    return APP_CONTROL_ERROR_IO_ERROR;
}

int app_control_set_uri(app_control_h app_control, const char* uri) {
    return APP_CONTROL_ERROR_IO_ERROR;
}

int app_control_get_app_id(app_control_h app_control, char** app_id) {
    return APP_CONTROL_ERROR_IO_ERROR;
}

int app_control_get_operation(app_control_h app_control, char** operation) {
    return APP_CONTROL_ERROR_IO_ERROR;
}

int app_control_get_uri(app_control_h app_control, char** uri) {
    return APP_CONTROL_ERROR_IO_ERROR;
}

int app_control_add_extra_data(app_control_h app_control, const char* key, const char* value) {
    return APP_CONTROL_ERROR_IO_ERROR;
}

int app_control_add_extra_data_array(app_control_h app_control, const char* key, const char* value[], int length) {
    return APP_CONTROL_ERROR_IO_ERROR;
}

int app_control_get_extra_data(app_control_h app_control, const char* key, char** value) {
    return APP_CONTROL_ERROR_IO_ERROR;
}

int app_control_get_extra_data_array(app_control_h app_control, const char* key, char*** value, int* length) {
    return APP_CONTROL_ERROR_IO_ERROR;
}

int app_control_is_extra_data_array(app_control_h app_control, const char* key, bool* array) {
    return APP_CONTROL_ERROR_IO_ERROR;
}

int app_control_foreach_extra_data(app_control_h app_control, app_control_extra_data_cb callback, void* user_data) {
    return APP_CONTROL_ERROR_IO_ERROR;
}

int app_control_send_launch_request(app_control_h app_control, app_control_reply_cb callback, void* user_data) {
    return APP_CONTROL_ERROR_IO_ERROR;
}

int app_control_reply_to_launch_request(app_control_h reply, app_control_h request, app_control_result_e result) {
    return APP_CONTROL_ERROR_IO_ERROR;
}

/* SPDX-License-Identifier: Apache-2.0 */
/* No other application runs. */
#include <app_manager.h>

int app_manager_is_running(const char* app_id, bool* running) {
    return APP_MANAGER_ERROR_IO_ERROR;
}

int app_manager_get_app_context(const char* app_id, app_context_h* app_context) {
    return APP_MANAGER_ERROR_IO_ERROR;
}

int app_context_destroy(app_context_h app_context) {
    return APP_MANAGER_ERROR_IO_ERROR;
}

int app_manager_terminate_app(app_context_h app_context) {
    return APP_MANAGER_ERROR_IO_ERROR;
}

int app_manager_get_app_id(pid_t pid, char** app_id) {
    return APP_MANAGER_ERROR_IO_ERROR;
}

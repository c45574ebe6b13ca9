// SPDX-License-Identifier: Apache-2.0
/* Running applications. Any thread. Every call may block for one round trip to the application manager. */
#pragma once

#include <stdbool.h>
#include <sys/types.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct app_context_s* app_context_h;

typedef enum {
    APP_MANAGER_ERROR_NONE = 0,
    APP_MANAGER_ERROR_OUT_OF_MEMORY = -12,
    APP_MANAGER_ERROR_INVALID_PARAMETER = -22,
    APP_MANAGER_ERROR_NO_SUCH_APP = -201, /* not running, or the process is not an application */
    APP_MANAGER_ERROR_REQUEST_FAILED = -202,
    APP_MANAGER_ERROR_IO_ERROR = -203,
} app_manager_error_e;

int app_manager_is_running(const char* app_id, bool* running);
/* The caller frees the context with app_context_destroy. Unchanged on failure. */
int app_manager_get_app_context(const char* app_id, app_context_h* app_context);
int app_context_destroy(app_context_h app_context);
/* Asks the application to close, without waiting for it. */
int app_manager_terminate_app(app_context_h app_context);
/* The caller frees the id with free(). Unchanged on failure. */
int app_manager_get_app_id(pid_t pid, char** app_id);

#ifdef __cplusplus
}
#endif

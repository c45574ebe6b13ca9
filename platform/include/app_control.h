// SPDX-License-Identifier: Apache-2.0
/* Requests between applications: an operation, a URI, and extras, sent to an application by its id. */
#pragma once

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct app_control_s* app_control_h;

typedef enum {
    APP_CONTROL_ERROR_NONE = 0,
    APP_CONTROL_ERROR_OUT_OF_MEMORY = -12,
    APP_CONTROL_ERROR_INVALID_PARAMETER = -22,
    APP_CONTROL_ERROR_APP_NOT_FOUND = -101, /* the application is not installed, or the URI has no default handler */
    APP_CONTROL_ERROR_KEY_NOT_FOUND = -102,
    APP_CONTROL_ERROR_INVALID_DATA_TYPE = -103, /* an array instead of a single value, or the reverse */
    APP_CONTROL_ERROR_LAUNCH_REJECTED = -104,
    APP_CONTROL_ERROR_LAUNCH_FAILED = -105,
    APP_CONTROL_ERROR_TIMED_OUT = -106,
    APP_CONTROL_ERROR_IO_ERROR = -107, /* the application manager cannot be reached */
} app_control_error_e;

typedef enum {
    APP_CONTROL_RESULT_APP_STARTED = 1,
    APP_CONTROL_RESULT_SUCCEEDED = 0,
    APP_CONTROL_RESULT_FAILED = -1,
    APP_CONTROL_RESULT_CANCELED = -2,
} app_control_result_e;

/* Start an application at its main entry. */
#define APP_CONTROL_OPERATION_MAIN "http://orvane.example/appcontrol/operation/main"
/* Open a URI in the application registered for it. */
#define APP_CONTROL_OPERATION_VIEW "http://orvane.example/appcontrol/operation/view"

/* Called on the main loop with the reply to a request. The platform owns both handles, which are valid during the
 * call. */
typedef void (*app_control_reply_cb)(app_control_h request, app_control_h reply, app_control_result_e result,
                                     void* user_data);
/* Return false to stop the iteration. */
typedef bool (*app_control_extra_data_cb)(app_control_h app_control, const char* key, void* user_data);

/* One thread at a time may use a handle. The caller frees it with app_control_destroy. All functions return
 * app_control_error_e. */
int app_control_create(app_control_h* app_control);
int app_control_destroy(app_control_h app_control);
int app_control_set_app_id(app_control_h app_control, const char* app_id);
int app_control_set_operation(app_control_h app_control, const char* operation);
int app_control_set_uri(app_control_h app_control, const char* uri);
/* The caller frees the string with free(). Null if the field was never set. */
int app_control_get_app_id(app_control_h app_control, char** app_id);
int app_control_get_operation(app_control_h app_control, char** operation);
int app_control_get_uri(app_control_h app_control, char** uri);

/* Inserts or replaces. Values are any bytes that a C string can hold. */
int app_control_add_extra_data(app_control_h app_control, const char* key, const char* value);
int app_control_add_extra_data_array(app_control_h app_control, const char* key, const char* value[], int length);
/* The caller frees the string with free(). */
int app_control_get_extra_data(app_control_h app_control, const char* key, char** value);
/* The caller frees each element and the array with free(). */
int app_control_get_extra_data_array(app_control_h app_control, const char* key, char*** value, int* length);
int app_control_is_extra_data_array(app_control_h app_control, const char* key, bool* array);
int app_control_foreach_extra_data(app_control_h app_control, app_control_extra_data_cb callback, void* user_data);

/* Starts the application if it is not running, and blocks until it has received the request. The callback, if any, gets
 * at most one reply; if the application cannot reply, the platform replies APP_CONTROL_RESULT_APP_STARTED. If the
 * application is not installed, returns APP_CONTROL_ERROR_APP_NOT_FOUND immediately. */
int app_control_send_launch_request(app_control_h app_control, app_control_reply_cb callback, void* user_data);
/* Replies to a request that this process received. */
int app_control_reply_to_launch_request(app_control_h reply, app_control_h request, app_control_result_e result);

#ifdef __cplusplus
}
#endif

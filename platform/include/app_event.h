// SPDX-License-Identifier: Apache-2.0
/* Events that applications and the system announce by name. */
#pragma once

#include "bundle.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct event_handler_s* event_handler_h;

typedef enum {
    EVENT_ERROR_NONE = 0,
    EVENT_ERROR_OUT_OF_MEMORY = -12,
    EVENT_ERROR_INVALID_PARAMETER = -22,
    EVENT_ERROR_IO_ERROR = -401,
} event_error_e;

/* Called on the main loop for each event. The platform owns the data, which is valid during the call. */
typedef void (*event_cb)(const char* event_name, bundle* event_data, void* user_data);

/* event_name: "event.<id of the application that announces it>.<name of the event>". The caller frees the handler with
 * event_remove_event_handler, after which the callback is not called again. Main loop only. */
int event_add_event_handler(const char* event_name, event_cb callback, void* user_data, event_handler_h* event_handler);
int event_remove_event_handler(event_handler_h event_handler);

#ifdef __cplusplus
}
#endif

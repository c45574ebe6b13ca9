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

/* An event, on the main loop. The data belongs to the platform and ends with the call. */
typedef void (*event_cb)(const char* event_name, bundle* event_data, void* user_data);

/* event_name: "event.", the announcing application's id, ".", the event's own name. The handler is the caller's, freed
 * with event_remove_event_handler; after that call the callback comes no more. Both on the main loop. */
int event_add_event_handler(const char* event_name, event_cb callback, void* user_data, event_handler_h* event_handler);
int event_remove_event_handler(event_handler_h event_handler);

#ifdef __cplusplus
}
#endif

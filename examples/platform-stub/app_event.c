/* SPDX-License-Identifier: Apache-2.0 */
/* There are no platform events. */
#include <app_event.h>

int event_add_event_handler(const char* event_name, event_cb callback, void* user_data,
                            event_handler_h* event_handler) {
    return EVENT_ERROR_IO_ERROR;
}

int event_remove_event_handler(event_handler_h event_handler) {
    return EVENT_ERROR_IO_ERROR;
}

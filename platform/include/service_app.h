// SPDX-License-Identifier: Apache-2.0
/* Lifecycle of a service application. */
#pragma once

#include <stdbool.h>

#include "app_control.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Return false to end the loop, without the terminate callback. */
typedef bool (*service_app_create_cb)(void* user_data);
/* Called when the process no longer owns its application id, so a request that arrives now starts a new process. */
typedef void (*service_app_terminate_cb)(void* user_data);
/* The platform owns the handle, which is valid during the call. */
typedef void (*service_app_control_cb)(app_control_h app_control, void* user_data);

typedef struct {
    service_app_create_cb create;
    service_app_terminate_cb terminate;
    service_app_control_cb app_control;
} service_app_lifecycle_callback_s;

/* Runs the main loop on the calling thread until the platform or a signal ends it. The callbacks run on that thread.
 * Returns the process's exit code. */
int service_app_main(int argc, char** argv, service_app_lifecycle_callback_s* callback, void* user_data);

#ifdef __cplusplus
}
#endif

/* Life cycle of a service application. */
#pragma once

#include <stdbool.h>

#include "app_control.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Return false to give up: the loop ends without the terminate callback. */
typedef bool (*service_app_create_cb)(void* user_data);
/* The application id has been given up: requests that come now start the service anew. */
typedef void (*service_app_terminate_cb)(void* user_data);
/* The handle belongs to the platform and ends with the call. */
typedef void (*service_app_control_cb)(app_control_h app_control, void* user_data);

typedef struct {
    service_app_create_cb create;
    service_app_terminate_cb terminate;
    service_app_control_cb app_control;
} service_app_lifecycle_callback_s;

/* Runs the main loop on the calling thread until the platform or a signal ends it; all callbacks come on it.
 * Returns the process's exit code. */
int service_app_main(int argc, char** argv, service_app_lifecycle_callback_s* callback, void* user_data);

#ifdef __cplusplus
}
#endif

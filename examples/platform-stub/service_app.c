/* SPDX-License-Identifier: Apache-2.0 */
/* The main loop is Ecore's, and SIGINT or SIGTERM ends it. No request ever comes. */
#include <Ecore.h>
#include <service_app.h>
#include <stdlib.h>

static Eina_Bool on_exit_signal(void* data, int type, void* event) {
    ecore_main_loop_quit();
    return ECORE_CALLBACK_PASS_ON;
}

int service_app_main(int argc, char** argv, service_app_lifecycle_callback_s* callback, void* user_data) {
    ecore_app_no_system_modules(); /* they look for a system bus */
    if (ecore_init() == 0) {
        return EXIT_FAILURE;
    }
    ecore_event_handler_add(ECORE_EVENT_SIGNAL_EXIT, on_exit_signal, NULL);
    const bool created = callback->create(user_data);
    if (created) {
        ecore_main_loop_begin();
        callback->terminate(user_data);
    }
    ecore_shutdown();
    return created ? EXIT_SUCCESS : EXIT_FAILURE;
}

// SPDX-License-Identifier: Apache-2.0
/* Trusted message ports: key/value messages between running applications of the same user. */
#pragma once

#include <stdbool.h>

#include "bundle.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef enum {
    MESSAGE_PORT_ERROR_NONE = 0,
    MESSAGE_PORT_ERROR_OUT_OF_MEMORY = -12,
    MESSAGE_PORT_ERROR_INVALID_PARAMETER = -22,
    MESSAGE_PORT_ERROR_PORT_NOT_FOUND = -301,
    MESSAGE_PORT_ERROR_CERTIFICATE_NOT_MATCH = -302, /* the peer is not trusted */
    MESSAGE_PORT_ERROR_IO_ERROR = -303,
} message_port_error_e;

/* Called on the main loop for each message. remote_port is null if the sender has no port to reply to. The platform
 * owns all arguments, which are valid during the call. */
typedef void (*message_port_trusted_message_cb)(int trusted_local_port_id, const char* remote_app_id,
                                                const char* remote_port, bool trusted_remote_port, bundle* message,
                                                void* user_data);

/* Any thread. Blocks for one round trip. */
int message_port_check_trusted_remote_port(const char* remote_app_id, const char* remote_port, bool* exist);
/* Any thread. Return after sending, without waiting for delivery. The caller keeps ownership of the bundle. */
int message_port_send_trusted_message(const char* remote_app_id, const char* remote_port, bundle* message);
int message_port_send_trusted_message_with_local_port(const char* remote_app_id, const char* remote_port,
                                                      bundle* message, int trusted_local_port_id);
/* Returns the port's id (1 or more), or a negative message_port_error_e. For a name that is already registered, returns
 * the same id and replaces the callback. */
int message_port_register_trusted_local_port(const char* trusted_local_port, message_port_trusted_message_cb callback,
                                             void* user_data);
/* Main loop only. After it returns, the callback is not called again. */
int message_port_unregister_trusted_local_port(int trusted_local_port_id);

#ifdef __cplusplus
}
#endif

/* SPDX-License-Identifier: Apache-2.0 */
/* There are no message ports. */
#include <message_port.h>

int message_port_check_trusted_remote_port(const char* remote_app_id, const char* remote_port, bool* exist) {
    return MESSAGE_PORT_ERROR_IO_ERROR;
}

int message_port_send_trusted_message(const char* remote_app_id, const char* remote_port, bundle* message) {
    return MESSAGE_PORT_ERROR_IO_ERROR;
}

int message_port_send_trusted_message_with_local_port(const char* remote_app_id, const char* remote_port,
                                                      bundle* message, int trusted_local_port_id) {
    return MESSAGE_PORT_ERROR_IO_ERROR;
}

int message_port_register_trusted_local_port(const char* trusted_local_port, message_port_trusted_message_cb callback,
                                             void* user_data) {
    return MESSAGE_PORT_ERROR_IO_ERROR;
}

int message_port_unregister_trusted_local_port(int trusted_local_port_id) {
    return MESSAGE_PORT_ERROR_IO_ERROR;
}

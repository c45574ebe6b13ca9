/* SPDX-License-Identifier: Apache-2.0 */
/* There is no network monitor. */
#include <net_connection.h>

int connection_create(connection_h* connection) {
    return CONNECTION_ERROR_OPERATION_FAILED;
}

int connection_destroy(connection_h connection) {
    return CONNECTION_ERROR_OPERATION_FAILED;
}

int connection_get_type(connection_h connection, connection_type_e* type) {
    return CONNECTION_ERROR_OPERATION_FAILED;
}

int connection_set_type_changed_cb(connection_h connection, connection_type_changed_cb callback, void* user_data) {
    return CONNECTION_ERROR_OPERATION_FAILED;
}

int connection_unset_type_changed_cb(connection_h connection) {
    return CONNECTION_ERROR_OPERATION_FAILED;
}

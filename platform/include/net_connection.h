// SPDX-License-Identifier: Apache-2.0
/* Network connection of the appliance. */
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

typedef struct connection_s* connection_h;

typedef enum {
    CONNECTION_TYPE_DISCONNECTED = 0,
    CONNECTION_TYPE_WIFI = 1,
    CONNECTION_TYPE_CELLULAR = 2,
    CONNECTION_TYPE_ETHERNET = 3,
    CONNECTION_TYPE_OTHER = 4,
} connection_type_e;

typedef enum {
    CONNECTION_ERROR_NONE = 0,
    CONNECTION_ERROR_OUT_OF_MEMORY = -12,
    CONNECTION_ERROR_INVALID_PARAMETER = -22,
    CONNECTION_ERROR_OPERATION_FAILED = -501,
} connection_error_e;

/* Called on the main loop when the type changes. */
typedef void (*connection_type_changed_cb)(connection_type_e type, void* user_data);

/* May be called before main(). The caller frees the handle with connection_destroy. */
int connection_create(connection_h* connection);
int connection_destroy(connection_h connection);
/* Any thread. */
int connection_get_type(connection_h connection, connection_type_e* type);
/* One callback per handle. Main loop only. */
int connection_set_type_changed_cb(connection_h connection, connection_type_changed_cb callback, void* user_data);
int connection_unset_type_changed_cb(connection_h connection);

#ifdef __cplusplus
}
#endif

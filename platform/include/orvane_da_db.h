// SPDX-License-Identifier: Apache-2.0
/* Local database: named databases with tables, whose records have text fields. */
#pragma once

#include <glib.h>
#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct vrd_manager_s* vrd_manager_h;
typedef struct vrd_bundle_s* vrd_bundle_h;

typedef enum {
    VRD_ERROR_NONE = 0,
    VRD_ERROR_OUT_OF_MEMORY = -12,
    VRD_ERROR_INVALID_PARAMETER = -22,
    VRD_ERROR_NO_TABLE = -1101,
    VRD_ERROR_IO_ERROR = -1102,
} vrd_error_e;

/* The type of a field. */
enum { VRD_FIELD_TEXT = 1 };

/* One field of a record. The strings are valid during the call. Return false to stop the iteration. */
typedef bool (*vrd_table_cb)(const char* field, int kind, const char* value, void* user_data);

/* One thread at a time may use a handle. All functions return vrd_error_e. A name must be usable as a file name: not
 * empty, no slash, no leading dot, and at most 200 bytes; any other name causes VRD_ERROR_INVALID_PARAMETER. A damaged
 * file causes VRD_ERROR_IO_ERROR. vrd_manager_create also succeeds if the database cannot be opened yet; each later
 * call tries again. */
int vrd_manager_create(vrd_manager_h* manager, const char* name);
int vrd_manager_destroy(vrd_manager_h manager);
/* Iterates over the fields of all records, record by record, in their state at the beginning of the iteration. The
 * callback must not use the manager. */
int vrd_manager_foreach_table(vrd_manager_h manager, const char* table, vrd_table_cb callback, void* user_data);
/* Replaces all records of the database's private table, which has the database's name, with `bundles`, a list of
 * vrd_bundle_h that the caller keeps. On failure, the table stays unchanged. */
int vrd_manager_private_update(vrd_manager_h manager, GList* bundles);

int vrd_bundle_create(vrd_bundle_h* record);
int vrd_bundle_destroy(vrd_bundle_h record);
/* Inserts or replaces. */
int vrd_bundle_add_str(vrd_bundle_h record, const char* key, const char* text);

#ifdef __cplusplus
}
#endif

/* Local database: named databases whose tables hold records of text fields. */
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

/* Kind of a field. */
enum { VRD_FIELD_TEXT = 1 };

/* One field of a record; the texts end with the call. False ends the walk. */
typedef bool (*vrd_table_cb)(const char* field, int kind, const char* value, void* user_data);

/* A handle may be used by any thread, one at a time. All return vrd_error_e. A name that is no file name of its own
 * (empty, with a slash or a leading dot, over 200 bytes) is an invalid parameter; a broken file is an I/O error. A
 * database that cannot be opened yet has its manager all the same: each use tries again. */
int vrd_manager_create(vrd_manager_h* manager, const char* name);
int vrd_manager_destroy(vrd_manager_h manager);
/* Walks the fields of all records, record by record, as they were when the walk began. The callback must not use the
 * manager. */
int vrd_manager_foreach_table(vrd_manager_h manager, const char* table, vrd_table_cb callback, void* user_data);
/* Replaces all records of the database's private table (named like the database) by `bundles` (a list of
 * vrd_bundle_h, which stay the caller's), whole or not at all. */
int vrd_manager_private_update(vrd_manager_h manager, GList* bundles);

int vrd_bundle_create(vrd_bundle_h* record);
int vrd_bundle_destroy(vrd_bundle_h record);
/* A key that is there already gets the new text. */
int vrd_bundle_add_str(vrd_bundle_h record, const char* key, const char* text);

#ifdef __cplusplus
}
#endif

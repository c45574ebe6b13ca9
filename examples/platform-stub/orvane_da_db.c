/* SPDX-License-Identifier: Apache-2.0 */
/* There is no local database. */
#include <orvane_da_db.h>

int vrd_manager_create(vrd_manager_h* manager, const char* name) {
    return VRD_ERROR_IO_ERROR;
}

int vrd_manager_destroy(vrd_manager_h manager) {
    return VRD_ERROR_IO_ERROR;
}

int vrd_manager_foreach_table(vrd_manager_h manager, const char* table, vrd_table_cb callback, void* user_data) {
    return VRD_ERROR_IO_ERROR;
}

int vrd_manager_private_update(vrd_manager_h manager, GList* bundles) {
    return VRD_ERROR_IO_ERROR;
}

int vrd_bundle_create(vrd_bundle_h* record) {
    return VRD_ERROR_IO_ERROR;
}

int vrd_bundle_destroy(vrd_bundle_h record) {
    return VRD_ERROR_IO_ERROR;
}

int vrd_bundle_add_str(vrd_bundle_h record, const char* key, const char* text) {
    return VRD_ERROR_IO_ERROR;
}

/* SPDX-License-Identifier: Apache-2.0 */
/* No setting has a value. */
#include <stddef.h>
#include <vconf.h>

int vconf_get_int(const char* key, int* value) {
    return -1;
}

int vconf_get_bool(const char* key, int* value) {
    return -1;
}

char* vconf_get_str(const char* key) {
    return NULL;
}

int vconf_set_int(const char* key, int value) {
    return -1;
}

int vconf_set_bool(const char* key, int value) {
    return -1;
}

int vconf_notify_key_changed(const char* key, vconf_callback_fn callback, void* user_data) {
    return -1;
}

int vconf_ignore_key_changed(const char* key, vconf_callback_fn callback) {
    return -1;
}

int vconf_keynode_get_type(const keynode_t* node) {
    return -1;
}

int vconf_keynode_get_int(const keynode_t* node) {
    return -1;
}

int vconf_keynode_get_bool(const keynode_t* node) {
    return -1;
}

double vconf_keynode_get_dbl(const keynode_t* node) {
    return 0.0;
}

const char* vconf_keynode_get_str(const keynode_t* node) {
    return NULL;
}

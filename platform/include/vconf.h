// SPDX-License-Identifier: Apache-2.0
/* Settings store: typed values under keys such as "db/mic_key/status". */
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

typedef struct keynode_s keynode_t;

enum {
    VCONF_TYPE_STRING = 40,
    VCONF_TYPE_INT = 41,
    VCONF_TYPE_DOUBLE = 42,
    VCONF_TYPE_BOOL = 43,
};

/* Called on the main loop for each change. The platform owns the node, which is valid during the call. */
typedef void (*vconf_callback_fn)(keynode_t* node, void* user_data);

/* Any thread. Return 0, or -1 with the output unchanged if the key is missing or has another type. */
int vconf_get_int(const char* key, int* value);
int vconf_get_bool(const char* key, int* value); /* 0 or 1 */
/* The caller frees the string with free(). Null if the key is missing or has another type. */
char* vconf_get_str(const char* key);

/* Any thread. Return 0 or -1. A later read in this process returns the new value. */
int vconf_set_int(const char* key, int value);
int vconf_set_bool(const char* key, int value); /* 0 or 1 */

/* Subscribes to changes by this process and by others. The pair of key and callback identifies the subscription. Main
 * loop only. Returns 0 or -1. */
int vconf_notify_key_changed(const char* key, vconf_callback_fn callback, void* user_data);
/* Ends the subscription. After it returns, the callback is not called again. */
int vconf_ignore_key_changed(const char* key, vconf_callback_fn callback);

int vconf_keynode_get_type(const keynode_t* node); /* VCONF_TYPE_*; another value if the key was removed */
int vconf_keynode_get_int(const keynode_t* node);
int vconf_keynode_get_bool(const keynode_t* node); /* true if not 0 */
double vconf_keynode_get_dbl(const keynode_t* node);
const char* vconf_keynode_get_str(const keynode_t* node); /* owned by the node */

#ifdef __cplusplus
}
#endif

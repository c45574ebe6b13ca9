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

/* A change, on the main loop. The node belongs to the platform and ends with the call. */
typedef void (*vconf_callback_fn)(keynode_t* node, void* user_data);

/* Any thread. 0, or -1 with the output untouched when the key is missing or of another type. */
int vconf_get_int(const char* key, int* value);
int vconf_get_bool(const char* key, int* value); /* 0 or 1 */
/* The text is the caller's, freed with free(); null when the key is missing or of another type. */
char* vconf_get_str(const char* key);

/* Any thread; a read that follows sees the value, in this process at once. 0 or -1. */
int vconf_set_int(const char* key, int value);
int vconf_set_bool(const char* key, int value); /* 0 or 1 */

/* Changes by this process and by others. The pair of key and callback names a subscription. On the main loop. 0 or -1. */
int vconf_notify_key_changed(const char* key, vconf_callback_fn callback, void* user_data);
/* Ends the subscription; after it returns the callback comes no more. */
int vconf_ignore_key_changed(const char* key, vconf_callback_fn callback);

int vconf_keynode_get_type(const keynode_t* node); /* VCONF_TYPE_*, other when the key has no value any more */
int vconf_keynode_get_int(const keynode_t* node);
int vconf_keynode_get_bool(const keynode_t* node); /* non-zero is true */
double vconf_keynode_get_dbl(const keynode_t* node);
const char* vconf_keynode_get_str(const keynode_t* node); /* the node's own; ends with it */

#ifdef __cplusplus
}
#endif

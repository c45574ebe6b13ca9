// SPDX-License-Identifier: Apache-2.0
/* Key/value pairs of a message. One thread at a time may use a handle. */
#pragma once

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct bundle_s bundle;
typedef struct bundle_keyval_s bundle_keyval_t;

typedef enum {
    BUNDLE_ERROR_NONE = 0,
    BUNDLE_ERROR_OUT_OF_MEMORY = -12,
    BUNDLE_ERROR_INVALID_PARAMETER = -22,
} bundle_error_e;

enum { BUNDLE_TYPE_STR = 1 };

typedef void (*bundle_iterator_t)(const char* key, const int type, const bundle_keyval_t* kv, void* user_data);

/* The caller frees the bundle with bundle_free. Null if memory runs out. */
bundle* bundle_create(void);
int bundle_free(bundle* b);
/* Inserts or replaces. Values are any bytes that a C string can hold. */
int bundle_add_str(bundle* b, const char* key, const char* str);
/* Iterates over the entries in insertion order. */
void bundle_foreach(bundle* b, bundle_iterator_t iter, void* user_data);
/* The value of a string entry: *val points into the entry, and *size includes the terminator. */
int bundle_keyval_get_basic_val(bundle_keyval_t* kv, void** val, size_t* size);

#ifdef __cplusplus
}
#endif

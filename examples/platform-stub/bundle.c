/* SPDX-License-Identifier: Apache-2.0 */
/* No message can be built, because none can be sent. */
#include <bundle.h>
#include <stddef.h>

bundle* bundle_create(void) {
    return NULL;
}

int bundle_free(bundle* b) {
    return BUNDLE_ERROR_INVALID_PARAMETER;
}

int bundle_add_str(bundle* b, const char* key, const char* str) {
    return BUNDLE_ERROR_INVALID_PARAMETER;
}

void bundle_foreach(bundle* b, bundle_iterator_t iter, void* user_data) {}

int bundle_keyval_get_basic_val(bundle_keyval_t* kv, void** val, size_t* size) {
    return BUNDLE_ERROR_INVALID_PARAMETER;
}

// SPDX-License-Identifier: Apache-2.0
#include "KeyNode.h"

namespace settings {

keynode_s nodeOf(GVariant* value) {
    keynode_s node;
    if (value == nullptr) {
        return node;
    }
    if (g_variant_is_of_type(value, G_VARIANT_TYPE_INT32)) {
        node.type = VCONF_TYPE_INT;
        node.number = g_variant_get_int32(value);
    } else if (g_variant_is_of_type(value, G_VARIANT_TYPE_BOOLEAN)) {
        node.type = VCONF_TYPE_BOOL;
        node.number = g_variant_get_boolean(value) ? 1 : 0;
    } else if (g_variant_is_of_type(value, G_VARIANT_TYPE_DOUBLE)) {
        node.type = VCONF_TYPE_DOUBLE;
        node.real = g_variant_get_double(value);
    } else if (g_variant_is_of_type(value, G_VARIANT_TYPE_STRING)) {
        node.type = VCONF_TYPE_STRING;
        node.text = g_variant_get_string(value, nullptr);
    }
    return node;
}

}  // namespace settings

extern "C" {

int vconf_keynode_get_type(const keynode_t* node) {
    return node->type;
}

int vconf_keynode_get_int(const keynode_t* node) {
    return node->number;
}

int vconf_keynode_get_bool(const keynode_t* node) {
    return node->number;
}

double vconf_keynode_get_dbl(const keynode_t* node) {
    return node->real;
}

const char* vconf_keynode_get_str(const keynode_t* node) {
    return node->text.c_str();
}

}  // extern "C"

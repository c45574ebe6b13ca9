// SPDX-License-Identifier: Apache-2.0
#include <string.h>
#include <vconf.h>

#include "KeyNode.h"
#include "Store.h"

namespace {

using settings::Store;

keynode_s nodeOfKey(const char* key) {
    const std::string path = Store::pathOf(key);
    return path.empty() ? keynode_s{} : settings::nodeOf(Store::get().read(path).get());
}

int readNumber(const char* key, int type, int* value) noexcept try {
    const keynode_s node = nodeOfKey(key);
    if (node.type != type) {
        return -1;
    }
    *value = node.number;
    return 0;
} catch (const std::exception&) {
    return -1;
}

int writeValue(const char* key, GVariant* value) noexcept try {
    const std::string path = Store::pathOf(key);
    if (path.empty()) {
        gio::sink(value).reset();
        return -1;
    }
    return Store::get().write(path, value) ? 0 : -1;
} catch (const std::exception&) {
    return -1;
}

}  // namespace

extern "C" {

int vconf_get_int(const char* key, int* value) {
    return readNumber(key, VCONF_TYPE_INT, value);
}

int vconf_get_bool(const char* key, int* value) {
    return readNumber(key, VCONF_TYPE_BOOL, value);
}

char* vconf_get_str(const char* key) {
    const keynode_s node = nodeOfKey(key);
    return node.type == VCONF_TYPE_STRING ? strdup(node.text.c_str()) : nullptr;
}

int vconf_set_int(const char* key, int value) {
    return writeValue(key, g_variant_new_int32(value));
}

int vconf_set_bool(const char* key, int value) {
    return writeValue(key, g_variant_new_boolean(value != 0));
}

int vconf_notify_key_changed(const char* key, vconf_callback_fn callback, void* user_data) {
    const std::string path = Store::pathOf(key);
    if (path.empty() || callback == nullptr) {
        return -1;
    }
    Store::get().subscriptions().add(path, callback, user_data);
    return 0;
}

int vconf_ignore_key_changed(const char* key, vconf_callback_fn callback) {
    return Store::get().subscriptions().remove(Store::pathOf(key), callback) ? 0 : -1;
}

}  // extern "C"

// SPDX-License-Identifier: Apache-2.0
#include <string.h>
#include <vconf.h>

#include "KeyNode.h"
#include "Store.h"
#include "process/Guard.h"

namespace {

using settings::Store;

constexpr int kFailure = -1;

keynode_s nodeOfKey(const char* key) {
    const std::string path = Store::pathOf(key);
    return path.empty() ? keynode_s{} : settings::nodeOf(Store::get().read(path).get());
}

int readNumber(const char* function, const char* key, int type, int* value) noexcept {
    return process::guarded(kFailure, function, [&]() -> int {
        const keynode_s node = nodeOfKey(key);
        if (node.type != type) {
            return kFailure;
        }
        *value = node.number;
        return 0;
    });
}

int writeValue(const char* function, const char* key, GVariant* value) noexcept {
    return process::guarded(kFailure, function, [&]() -> int {
        const gio::Variant owned(value);
        const std::string path = Store::pathOf(key);
        return !path.empty() && Store::get().write(path, owned.get()) ? 0 : kFailure;
    });
}

}  // namespace

extern "C" {

int vconf_get_int(const char* key, int* value) {
    return readNumber(__func__, key, VCONF_TYPE_INT, value);
}

int vconf_get_bool(const char* key, int* value) {
    return readNumber(__func__, key, VCONF_TYPE_BOOL, value);
}

char* vconf_get_str(const char* key) {
    return process::guarded(static_cast<char*>(nullptr), __func__, [&] {
        const keynode_s node = nodeOfKey(key);
        return node.type == VCONF_TYPE_STRING ? strdup(node.text.c_str()) : nullptr;
    });
}

int vconf_set_int(const char* key, int value) {
    return writeValue(__func__, key, g_variant_new_int32(value));
}

int vconf_set_bool(const char* key, int value) {
    return writeValue(__func__, key, g_variant_new_boolean(value != 0));
}

int vconf_notify_key_changed(const char* key, vconf_callback_fn callback, void* user_data) {
    return process::guarded(kFailure, __func__, [&]() -> int {
        const std::string path = Store::pathOf(key);
        if (path.empty() || callback == nullptr) {
            return kFailure;
        }
        Store::get().subscriptions().add(path, callback, user_data);
        return 0;
    });
}

int vconf_ignore_key_changed(const char* key, vconf_callback_fn callback) {
    return process::guarded(kFailure, __func__, [&]() -> int {
        return Store::get().subscriptions().remove(Store::pathOf(key), callback) ? 0 : kFailure;
    });
}

}  // extern "C"

// SPDX-License-Identifier: Apache-2.0
#include "Bundle.h"

#include <memory>

#include "Request.h"

namespace appfw {

GVariant* toVariant(const bundle_s& bundle) {
    GVariantBuilder list;
    g_variant_builder_init(&list, G_VARIANT_TYPE("a(ayay)"));
    for (const auto& [key, entry] : bundle.entries) {
        g_variant_builder_add(&list, "(@ay@ay)", toBytes(key), toBytes(entry.value));
    }
    return g_variant_builder_end(&list);
}

bundle_s toBundle(GVariant* list) {
    bundle_s bundle;
    for (gsize i = 0; i < g_variant_n_children(list); ++i) {
        const gio::Variant entry(g_variant_get_child_value(list, i));
        const gio::Variant key(g_variant_get_child_value(entry.get(), 0));
        const gio::Variant value(g_variant_get_child_value(entry.get(), 1));
        bundle_add_str(&bundle, fromBytes(key.get()).c_str(), fromBytes(value.get()).c_str());
    }
    return bundle;
}

}  // namespace appfw

bundle* bundle_create(void) {
    return std::make_unique<bundle_s>().release();
}

int bundle_free(bundle* b) {
    const std::unique_ptr<bundle_s> owned(b);
    return owned ? BUNDLE_ERROR_NONE : BUNDLE_ERROR_INVALID_PARAMETER;
}

int bundle_add_str(bundle* b, const char* key, const char* str) {
    if (b == nullptr || key == nullptr || str == nullptr) {
        return BUNDLE_ERROR_INVALID_PARAMETER;
    }
    const auto [place, isNew] = b->places.emplace(key, b->entries.size());
    if (isNew) {
        b->entries.push_back({key, {str}});
    } else {
        b->entries[place->second].second.value = str;
    }
    return BUNDLE_ERROR_NONE;
}

void bundle_foreach(bundle* b, bundle_iterator_t iter, void* user_data) {
    if (b == nullptr || iter == nullptr) {
        return;
    }
    for (const auto& [key, entry] : b->entries) {
        iter(key.c_str(), BUNDLE_TYPE_STR, &entry, user_data);
    }
}

int bundle_keyval_get_basic_val(bundle_keyval_t* kv, void** val, size_t* size) {
    if (kv == nullptr || val == nullptr || size == nullptr) {
        return BUNDLE_ERROR_INVALID_PARAMETER;
    }
    *val = kv->value.data();
    *size = kv->value.size() + 1;
    return BUNDLE_ERROR_NONE;
}

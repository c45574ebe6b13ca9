// SPDX-License-Identifier: Apache-2.0
#include "Bundle.h"

#include <memory>

#include "process/Guard.h"

namespace appfw {

Entries toEntries(const bundle_s& bundle) {
    Entries entries;
    entries.reserve(bundle.entries.size());
    for (const auto& [key, entry] : bundle.entries) {
        entries.push_back({{key}, {entry.value}});
    }
    return entries;
}

bundle_s toBundle(const Entries& entries) {
    bundle_s bundle;
    for (const auto& [key, value] : entries) {
        bundle_add_str(&bundle, key.text.c_str(), value.text.c_str());
    }
    return bundle;
}

}  // namespace appfw

namespace {

constexpr process::Failures<int> kFailures{BUNDLE_ERROR_INVALID_PARAMETER, BUNDLE_ERROR_OUT_OF_MEMORY};

}  // namespace

bundle* bundle_create(void) {
    return process::guarded(static_cast<bundle*>(nullptr), __func__,
                            [] { return std::make_unique<bundle_s>().release(); });
}

int bundle_free(bundle* b) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        const std::unique_ptr<bundle_s> owned(b);
        return owned ? BUNDLE_ERROR_NONE : BUNDLE_ERROR_INVALID_PARAMETER;
    });
}

int bundle_add_str(bundle* b, const char* key, const char* str) {
    return process::guarded(kFailures, __func__, [&]() -> int {
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
    });
}

void bundle_foreach(bundle* b, bundle_iterator_t iter, void* user_data) {
    if (b == nullptr || iter == nullptr) {
        return;
    }
    process::contained(__func__, [&] {
        for (const auto& [key, entry] : b->entries) {
            iter(key.c_str(), BUNDLE_TYPE_STR, &entry, user_data);
        }
    });
}

int bundle_keyval_get_basic_val(bundle_keyval_t* kv, void** val, size_t* size) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        if (kv == nullptr || val == nullptr || size == nullptr) {
            return BUNDLE_ERROR_INVALID_PARAMETER;
        }
        *val = kv->value.data();
        *size = kv->value.size() + 1;
        return BUNDLE_ERROR_NONE;
    });
}

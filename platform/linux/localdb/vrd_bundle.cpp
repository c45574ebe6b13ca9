// SPDX-License-Identifier: Apache-2.0
#include <memory>

#include "Handles.h"

using localdb::kFailures;
using localdb::refuseMissing;

extern "C" {

int vrd_bundle_create(vrd_bundle_h* record) {
    if (record == nullptr) {
        return refuseMissing(__func__);
    }
    return process::guarded(kFailures, __func__, [&]() -> int {
        *record = std::make_unique<vrd_bundle_s>().release();
        return VRD_ERROR_NONE;
    });
}

int vrd_bundle_destroy(vrd_bundle_h record) {
    const std::unique_ptr<vrd_bundle_s> owned(record);
    return owned ? VRD_ERROR_NONE : refuseMissing(__func__);
}

int vrd_bundle_add_str(vrd_bundle_h record, const char* key, const char* text) {
    if (record == nullptr || key == nullptr || text == nullptr) {
        return refuseMissing(__func__);
    }
    return process::guarded(kFailures, __func__, [&]() -> int {
        record->set(key, text);
        return VRD_ERROR_NONE;
    });
}
}

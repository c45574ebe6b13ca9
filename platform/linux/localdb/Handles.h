// SPDX-License-Identifier: Apache-2.0
// The objects behind the handles of orvane_da_db.h, and helpers that its functions share.
#pragma once

#include "Manager.h"
#include "dlog.h"
#include "orvane_da_db.h"
#include "process/Guard.h"

struct vrd_manager_s : localdb::Manager {
    using Manager::Manager;
};

struct vrd_bundle_s : localdb::Record {};

namespace localdb {

constexpr char kTag[] = "orvane-db";
constexpr process::Failures<int> kFailures{VRD_ERROR_IO_ERROR, VRD_ERROR_OUT_OF_MEMORY};

inline int refuseMissing(const char* function) noexcept {
    dlog_print(DLOG_ERROR, kTag, "%s: an argument is missing", function);
    return VRD_ERROR_INVALID_PARAMETER;
}

}  // namespace localdb

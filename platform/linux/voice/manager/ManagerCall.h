// SPDX-License-Identifier: Apache-2.0
// The process's manager, and helpers for calls from the C interface. Main loop only.
#pragma once

#include <memory>

#include "Manager.h"
#include "process/Guard.h"

namespace voice {

constexpr process::Failures<int> kFailures{VC_ERROR_OPERATION_FAILED, VC_ERROR_OUT_OF_MEMORY};

// Holds the manager from vc_mgr_initialize to vc_mgr_deinitialize.
std::unique_ptr<Manager>& currentManager();

// Calls `body` with the manager and returns its code. An exception becomes an error code and a line in the log.
template <typename Body>
int callManager(const char* function, const Body& body) noexcept {
    return process::guarded(kFailures, function, [&body]() -> int {
        Manager* manager = currentManager().get();
        return manager ? body(*manager) : VC_ERROR_INVALID_STATE;
    });
}

}  // namespace voice

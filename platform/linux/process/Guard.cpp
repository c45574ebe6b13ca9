// SPDX-License-Identifier: Apache-2.0
#include "process/Guard.h"

#include <exception>

#include "dlog.h"

namespace process {

void logException(const char* name) noexcept {
    constexpr const char* TAG = "orvane-platform";
    try {
        throw;
    } catch (const std::exception& fault) {
        dlog_print(DLOG_ERROR, TAG, "%s: %s", name, fault.what());
    } catch (...) {
        dlog_print(DLOG_ERROR, TAG, "%s: unknown exception", name);
    }
}

}  // namespace process

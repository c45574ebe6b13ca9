// SPDX-License-Identifier: Apache-2.0
#include "process/Guard.h"

#include <exception>
#include <string>

#include "process/FaultLog.h"

namespace process {

namespace {

// Logs the line even if memory has run out.
void logFaultOf(const char* name, const char* what) noexcept {
    constexpr const char* TAG = "orvane-platform";
    try {
        logFault(DLOG_ERROR, TAG, name, std::string(name) + ": " + what);
    } catch (const std::bad_alloc&) {
        dlog_print(DLOG_ERROR, TAG, "%s: %s", name, what);
    }
}

}  // namespace

void logException(const char* name) noexcept {
    try {
        throw;
    } catch (const std::exception& fault) {
        logFaultOf(name, fault.what());
    } catch (...) {
        logFaultOf(name, "unknown exception");
    }
}

}  // namespace process

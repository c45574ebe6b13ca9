// SPDX-License-Identifier: Apache-2.0
#include "bus/Admission.h"

#include <malloc.h>
#include <unistd.h>

#include "bus/SessionBus.h"
#include "process/FaultLog.h"

namespace bus {

namespace {

constexpr std::size_t kMaxBytes = 1 << 20;
constexpr std::size_t kMaxValues = 10000;
constexpr unsigned kTrimMs = 100;

// Counts up to one more than `limit`. A byte string is one value.
std::size_t valuesIn(const gio::Variant& value, std::size_t limit) {
    GVariant* const raw = value.get();
    if (!g_variant_is_container(raw) || g_variant_is_of_type(raw, G_VARIANT_TYPE_BYTESTRING)) {
        return 1;
    }
    std::size_t count = 1;
    for (std::size_t i = 0; i < g_variant_n_children(raw) && count <= limit; ++i) {
        count += valuesIn(gio::child(raw, i), limit - count);
    }
    return count;
}

bool isTooLarge(const gio::Variant& arguments) {
    return g_variant_get_size(arguments.get()) > kMaxBytes || valuesIn(arguments, kMaxValues) > kMaxValues;
}

// GDBus has already read the whole message and needs several times its size for it. The C library would keep that
// memory after the message is freed, which happens soon after this call has failed.
void returnMemory() {
    ioThread().postAfter(kTrimMs, [] { malloc_trim(0); });
}

}  // namespace

bool admits(gio::MethodCall& call) {
    const bool tooLarge = isTooLarge(call.arguments());
    if (tooLarge) {
        returnMemory();
    }
    if (peers().userOf(call.sender()) != getuid()) {
        call.fail("org.freedesktop.DBus.Error.AccessDenied", "only calls of the same user are accepted");
    } else if (tooLarge) {
        process::logFault(DLOG_WARN, "orvane-bus", call.method(),
                          "refused a call to " + call.method() + ": its arguments are too large");
        call.fail("org.orvane.Error.TooLarge", "the arguments exceed the limits on size or count");
    }
    return !call.isAnswered();
}

}  // namespace bus

// SPDX-License-Identifier: Apache-2.0
#include "gio/CallError.h"

#include <algorithm>
#include <iterator>

#include "gio/GPointer.h"

namespace gio {

CallError::CallError(const Error& error) : std::runtime_error(error.message()) {
    const Text name(error ? g_dbus_error_get_remote_error(error.get()) : nullptr);
    mName = name ? name.get() : "";
    mTimeout = g_error_matches(error.get(), G_IO_ERROR, G_IO_ERROR_TIMED_OUT) ||
               g_error_matches(error.get(), G_DBUS_ERROR, G_DBUS_ERROR_NO_REPLY);
}

bool CallError::hasNoReceiver() const {
    const std::string prefix = "org.freedesktop.DBus.Error.";
    constexpr const char* KINDS[] = {"ServiceUnknown", "NameHasNoOwner", "UnknownMethod", "UnknownObject",
                                     "UnknownInterface"};
    return std::any_of(std::begin(KINDS), std::end(KINDS), [&](const char* kind) { return mName == prefix + kind; });
}

}  // namespace gio

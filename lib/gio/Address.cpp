// SPDX-License-Identifier: Apache-2.0
#include "gio/Address.h"

#include "gio/GPointer.h"

namespace gio {

std::string addressOf(GBusType type) {
    Error error;
    const Text address(g_dbus_address_get_for_bus_sync(type, nullptr, error.out()));
    return address ? address.get() : "";
}

bool isBusName(const std::string& text) {
    return g_dbus_is_name(text.c_str());
}

bool isUtf8(const std::string& text) {
    return g_utf8_validate(text.data(), static_cast<gssize>(text.size()), nullptr);
}

}  // namespace gio

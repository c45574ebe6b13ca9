// SPDX-License-Identifier: Apache-2.0
#include "dbus/Interfaces.h"

extern "C" {
#include "interfaces.h"
}

namespace dbus {

gio::Interface interface(const std::string& name) {
    return gio::Interface(orvane_interfaces_get_resource(), name);
}

}  // namespace dbus

// SPDX-License-Identifier: Apache-2.0
#include "dbus/standins/StandInInterfaces.h"

extern "C" {
#include "standin_interfaces.h"
}

namespace dbus {

gio::Interface standInInterface(const std::string& name) {
    return gio::Interface(orvane_standin_interfaces_get_resource(), name);
}

}  // namespace dbus

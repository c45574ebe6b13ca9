// SPDX-License-Identifier: Apache-2.0
// The D-Bus interfaces of data/dbus/standins, for the simulator and tests.
#pragma once

#include <string>

#include "gio/Interface.h"

namespace dbus {

// Finds an interface by name. Throws std::runtime_error if it does not exist.
gio::Interface standInInterface(const std::string& name);

}  // namespace dbus

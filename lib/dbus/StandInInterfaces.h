// SPDX-License-Identifier: Apache-2.0
// The D-Bus interfaces of data/dbus/standins, for the simulator and tests.
#pragma once

#include <string>

#include "gio/Interface.h"

namespace dbus {

// By the interface's name. Throws std::runtime_error when there is none.
gio::Interface standInInterface(const std::string& name);

}  // namespace dbus

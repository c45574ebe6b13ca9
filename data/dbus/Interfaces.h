// SPDX-License-Identifier: Apache-2.0
// The D-Bus interfaces of data/dbus, which are compiled in.
#pragma once

#include <string>

#include "gio/Interface.h"

namespace dbus {

// Finds an interface by name. Throws std::runtime_error if it does not exist.
gio::Interface interface(const std::string& name);

}  // namespace dbus

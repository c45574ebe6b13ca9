// SPDX-License-Identifier: Apache-2.0
// The D-Bus interfaces of data/dbus, which are compiled in.
#pragma once

#include <string>

#include "gio/Interface.h"

namespace dbus {

// By the interface's name. Throws std::runtime_error when there is none.
gio::Interface interface(const std::string& name);

}  // namespace dbus

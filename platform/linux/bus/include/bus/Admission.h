// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "gio/MethodCall.h"

namespace bus {

// Whether an object of this process may handle the call, which it checks before it reads the arguments: the sender must
// be a process of the same user, and the arguments must be within the limits that docs/dbus.md lists. Otherwise the
// call fails with the named error. IO thread only.
bool admits(gio::MethodCall& call);

}  // namespace bus

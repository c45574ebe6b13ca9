// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "gio/MethodCall.h"

namespace bus {

// Whether this process may handle the call. Every method handler calls this before it reads the arguments. The sender
// must be a process of the same user, and the arguments must be within the limits that docs/dbus.md lists. Otherwise,
// fails the call with the error that docs/dbus.md names. IO thread only.
bool admits(gio::MethodCall& call);

}  // namespace bus

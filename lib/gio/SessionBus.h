// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "gio/Connection.h"
#include "gio/Peers.h"

namespace gio {

// The process's connection to the session bus, whose handlers run on the IO thread. Opened on first use; lives until
// the process ends. Without a bus it is not open, and every call fails with the reason.
const Connection& sessionBus();
// Who else is on it. On the IO thread only.
Peers& sessionPeers();

}  // namespace gio

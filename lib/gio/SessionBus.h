// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "gio/Connection.h"
#include "gio/Peers.h"

namespace gio {

// The process's connection to the session bus. Its handlers run on the IO thread. Opened on first use, and lives until
// the process exits. Without a bus, every call fails with the reason.
const Connection& sessionBus();
// The other connections on the session bus. IO thread only.
Peers& sessionPeers();

}  // namespace gio

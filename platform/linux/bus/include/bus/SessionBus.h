// SPDX-License-Identifier: Apache-2.0
// The D-Bus objects that the modules of one process share. The process owner creates them on first use and destroys
// them when the process exits.
#pragma once

#include "gio/Connection.h"
#include "gio/IoThread.h"
#include "gio/Peers.h"

namespace bus {

// The thread that serves D-Bus, dconf, and the network.
gio::IoThread& ioThread();
// The connection to the session bus. Its handlers run on the IO thread. Without a bus, every call fails with the
// reason.
const gio::Connection& session();
// The other connections on the session bus. IO thread only.
gio::Peers& peers();

}  // namespace bus

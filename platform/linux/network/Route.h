// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <net_connection.h>

namespace network {

// Kind of the interface that carries the default route, from the kernel; disconnected when there is no such route.
connection_type_e kindOfDefaultRoute();

}  // namespace network

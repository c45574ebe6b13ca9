// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <net_connection.h>

namespace network {

// The type of the interface of the kernel's default route; disconnected without a default route.
connection_type_e kindOfDefaultRoute();

}  // namespace network

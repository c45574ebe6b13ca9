// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <service_app.h>

namespace fake {

// What the program handed to the service loop; null before it did. The loop returns at once with the scripted answer.
const service_app_lifecycle_callback_s* lifecycle();

}  // namespace fake

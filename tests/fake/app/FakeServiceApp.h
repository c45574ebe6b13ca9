// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <service_app.h>

namespace fake {

// The callbacks that the program passed to service_app_main; null before. The fake returns at once.
const service_app_lifecycle_callback_s* lifecycle();

}  // namespace fake

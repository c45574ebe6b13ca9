// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <appliance/Appliance.h>

namespace bench {

// Returns when it has also read its models and answers a start request.
void startReadyService(sim::Appliance& appliance, const std::string& program = {});

}  // namespace bench

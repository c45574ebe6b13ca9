// SPDX-License-Identifier: Apache-2.0
#include "appliance/Ready.h"

namespace bench {

void startReadyService(sim::Appliance& appliance, const std::string& program) {
    appliance.startService(program);
    appliance.awaitRecognizer();
}

}  // namespace bench

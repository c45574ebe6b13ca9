// SPDX-License-Identifier: Apache-2.0
#include "WakeupContext.h"

namespace nuance {

// This interface passes ownership by plain pointers.
IWakeupCtx* IWakeupCtx::Create() {
    return new wakeup::WakeupContext(wakeup::makeSpotter);
}

void IWakeupCtx::Destroy(IWakeupCtx* ctx) {
    delete static_cast<wakeup::WakeupContext*>(ctx);
}

}  // namespace nuance

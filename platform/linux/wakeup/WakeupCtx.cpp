// SPDX-License-Identifier: Apache-2.0
#include "WakeupContext.h"

namespace nuance {

// Plain pointers are this interface's own way of ownership.
IWakeupCtx* IWakeupCtx::Create() {
    return new wakeup::WakeupContext;
}

void IWakeupCtx::Destroy(IWakeupCtx* ctx) {
    delete static_cast<wakeup::WakeupContext*>(ctx);
}

}  // namespace nuance

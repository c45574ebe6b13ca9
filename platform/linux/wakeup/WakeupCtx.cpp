// SPDX-License-Identifier: Apache-2.0
#include <memory>

#include "WakeupContext.h"
#include "process/Guard.h"

namespace nuance {

// This interface passes ownership through raw pointers.
IWakeupCtx* IWakeupCtx::Create() {
    constexpr wakeup::WakeupContext* failure = nullptr;
    return process::guarded(failure, "IWakeupCtx::Create", [] {
        return std::make_unique<wakeup::WakeupContext>([](const wakeup::WakeupConfig& config) {
                   return wakeup::makeSpotter(config, wakeup::installedPaths());
               })
            .release();
    });
}

void IWakeupCtx::Destroy(IWakeupCtx* ctx) {
    // Create() creates no other class. NOLINTNEXTLINE(cppcoreguidelines-pro-type-static-cast-downcast)
    delete static_cast<wakeup::WakeupContext*>(ctx);
}

}  // namespace nuance

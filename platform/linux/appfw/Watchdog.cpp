// SPDX-License-Identifier: Apache-2.0
#include "Watchdog.h"

#include <Ecore.h>

#include "dlog.h"
#include "process/Guard.h"
#include "status/Notify.h"
#include "status/Supervisor.h"

namespace appfw {

namespace {

constexpr int kFeedsPerLimit = 3;

Eina_Bool feed(void*) noexcept {
    process::contained("watchdog", [] {
        const std::string name = process::shared<status::Supervisor>().hanging(status::Supervisor::Clock::now());
        if (name.empty()) {
            status::notifyManager("WATCHDOG=1");
        } else {
            dlog_print(DLOG_ERROR, "orvane-appfw", "%s hangs; the watchdog is not fed", name.c_str());
        }
    });
    return ECORE_CALLBACK_RENEW;
}

}  // namespace

void startWatchdog(std::chrono::duration<double> limit) {
    if (limit.count() > 0) {
        feed(nullptr);
        ecore_timer_add(limit.count() / kFeedsPerLimit, feed, nullptr);
    }
}

}  // namespace appfw

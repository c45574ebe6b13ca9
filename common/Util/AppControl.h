// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Util/AppControlData.h"
#include "Util/AsyncThread.h"
#include "Util/Log.h"

namespace Util {

// Sends requests to other applications.
class AppControl {
public:
    // Any thread. Sends a copy on the worker, in the order of the calls. A failure is only logged. Returns 0; for a
    // reply, returns -1 and sends nothing.
    static int performAppControl(AppControlData& data);
    // Sends on the calling thread. Returns 0, the error of the platform call that failed, or -1.
    static int performAppControlSync(AppControlData& data);

private:
    static int launch(const AppControlData& data, const Caller& caller);
    static int terminate(const AppControlData& data, const Caller& caller);

    static AsyncThread asyncThread;
};

}  // namespace Util

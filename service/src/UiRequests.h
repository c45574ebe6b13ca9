// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Util/AppControl.h"

namespace OrvaneDA {

// The requests to the UI application. They are prepared once and reused, which is safe because sending copies a
// request. Only the main loop may change them.
struct UiRequests {
    Util::AppControlData triggerShot;
    Util::AppControlData stateChange;
    Util::AppControlData partialResult;  // kept, although partial results go to the UI's port
    Util::AppControlData speechDetected;

    static UiRequests& get();
    void prepare();
};

}  // namespace OrvaneDA

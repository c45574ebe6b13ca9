// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Util/AppControl.h"

namespace OrvaneDA {

// The program-wide requests to the UI application, prepared once and reused for every send: a send copies.
// Extras are filled on the main loop only.
struct UiRequests {
    Util::AppControlData triggerShot;
    Util::AppControlData stateChange;
    Util::AppControlData partialResult;
    Util::AppControlData speechDetected;

    static UiRequests& get();
    void prepare();
};

}  // namespace OrvaneDA

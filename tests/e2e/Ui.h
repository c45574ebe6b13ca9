// SPDX-License-Identifier: Apache-2.0
// Requests to the simulated UI, as the service sends them.
#pragma once

#include <string>

#include "appliance/Appliance.h"
#include "shared/Request.h"

inline void sendState(sim::Appliance& appliance, const std::string& state) {
    sim::sendRequest(appliance.session(), sim::kUi,
                     {std::string(sim::kOperationBase) + "state_change",
                      "",
                      {{"key_state_change", {state}}, {"key_error_type", {"None"}}},
                      "",
                      ""});
}

// Throws std::runtime_error when the UI does not have the port.
inline void sendPartialResult(sim::Appliance& appliance, const std::string& port, const std::string& text) {
    sim::sendPortMessage(appliance.session(), sim::kUi, port,
                         {{"key_partial_result", text}, {"key_is_final_result", "False"}});
}

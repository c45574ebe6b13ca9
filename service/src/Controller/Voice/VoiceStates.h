// SPDX-License-Identifier: Apache-2.0
// States of the voice-control manager: their names in the log and their meaning for the service.
#pragma once

#include <voice_control_manager.h>

#include "ClientState.h"

namespace OrvaneDA {

// "UNKNOWN" for an unlisted value.
const char* stateName(vc_state_e state);
const char* serviceStateName(vc_service_state_e state);

ClientState clientStateOf(vc_service_state_e state);
// VC_SERVICE_STATE_NONE unless the client state is Ready, Recording, or Processing.
vc_service_state_e serviceStateOf(ClientState state);

}  // namespace OrvaneDA

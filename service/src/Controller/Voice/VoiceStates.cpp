// SPDX-License-Identifier: Apache-2.0
#include "Controller/Voice/VoiceStates.h"

namespace OrvaneDA {

const char* stateName(vc_state_e state) {
    switch (state) {
        case VC_STATE_NONE:
            return "None";
        case VC_STATE_INITIALIZED:
            return "Initialized";
        case VC_STATE_READY:
            return "Ready";
        default:
            return "UNKNOWN";
    }
}

const char* serviceStateName(vc_service_state_e state) {
    switch (state) {
        case VC_SERVICE_STATE_NONE:
            return "None";
        case VC_SERVICE_STATE_READY:
            return "Ready";
        case VC_SERVICE_STATE_RECORDING:
            return "Recording";
        case VC_SERVICE_STATE_PROCESSING:
            return "Processing";
        default:
            return "UNKNOWN";
    }
}

ClientState clientStateOf(vc_service_state_e state) {
    switch (state) {
        case VC_SERVICE_STATE_NONE:
            return ClientState::Idle;
        case VC_SERVICE_STATE_READY:
            return ClientState::Ready;
        case VC_SERVICE_STATE_RECORDING:
            return ClientState::Recording;
        case VC_SERVICE_STATE_PROCESSING:
            return ClientState::Processing;
        default:
            return ClientState::Unknown;
    }
}

vc_service_state_e serviceStateOf(ClientState state) {
    switch (state) {
        case ClientState::Recording:
            return VC_SERVICE_STATE_RECORDING;
        case ClientState::Ready:
            return VC_SERVICE_STATE_READY;
        case ClientState::Processing:
            return VC_SERVICE_STATE_PROCESSING;
        default:
            return VC_SERVICE_STATE_NONE;
    }
}

}  // namespace OrvaneDA

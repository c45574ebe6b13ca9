#include "ClientState.h"

namespace OrvaneDA {

const char* wireName(ClientState state) {
    switch (state) {
        case ClientState::Idle:
            return "Idle";
        case ClientState::Init:
            return "Init";
        case ClientState::Recording:
            return "Recording";
        case ClientState::Ready:
            return "Ready";
        case ClientState::Processing:
            return "Processing";
        case ClientState::Error:
            return "Error";
        case ClientState::StandBy:
            return "StandBy";
        default:
            return "UNKNOWN";
    }
}

const char* wireName(ErrorType error) {
    switch (error) {
        case ErrorType::None:
            return "None";
        case ErrorType::Default:
            return "Default";
        case ErrorType::MicOff:
            return "MicOff";
        case ErrorType::WifiOff:
            return "WifiOff";
        case ErrorType::RecordingTimeout:
            return "RecordingTimeout";
        case ErrorType::ProcessingTimeout:
            return "ProcessingTimeout";
        case ErrorType::ServiceNotReady:
            return "ServiceNotReady";
        case ErrorType::NoResultJson:
            return "NoResultJson";
        case ErrorType::ServerCrashed:
            return "ServerCrashed";
        default:
            return "UNKNOWN";
    }
}

}  // namespace OrvaneDA

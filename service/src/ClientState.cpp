// SPDX-License-Identifier: Apache-2.0
#include "ClientState.h"

#include "Util/Constants.h"

namespace OrvaneDA {

const char* wireName(ClientState state) {
    namespace State = Constants::State;
    switch (state) {
        case ClientState::Idle:
            return State::IDLE;
        case ClientState::Init:
            return State::INIT;
        case ClientState::Recording:
            return State::RECORDING;
        case ClientState::Ready:
            return State::READY;
        case ClientState::Processing:
            return State::PROCESSING;
        case ClientState::Error:
            return State::ERROR;
        case ClientState::StandBy:
            return State::STAND_BY;
        default:
            return Constants::UNKNOWN;
    }
}

const char* wireName(ErrorType error) {
    namespace Error = Constants::Error;
    switch (error) {
        case ErrorType::None:
            return Error::NONE;
        case ErrorType::Default:
            return Error::DEFAULT;
        case ErrorType::MicOff:
            return Error::MIC_OFF;
        case ErrorType::WifiOff:
            return Error::WIFI_OFF;
        case ErrorType::RecordingTimeout:
            return Error::RECORDING_TIMEOUT;
        case ErrorType::ProcessingTimeout:
            return Error::PROCESSING_TIMEOUT;
        case ErrorType::ServiceNotReady:
            return Error::SERVICE_NOT_READY;
        case ErrorType::NoResultJson:
            return Error::NO_RESULT_JSON;
        case ErrorType::ServerCrashed:
            return Error::SERVER_CRASHED;
        default:
            return Constants::UNKNOWN;
    }
}

}  // namespace OrvaneDA

// SPDX-License-Identifier: Apache-2.0
// The states and errors that the service reports to the UI application, by name. Do not renumber the values.
#pragma once

namespace OrvaneDA {

enum class ClientState : int {
    Idle = 0,
    Init = 1,
    Recording = 2,
    Ready = 3,
    Processing = 4,
    Error = 5,
    StandBy = 6,
    Unknown = 7,  // before the first report
};

enum class ErrorType : int {
    None = 0,
    Default = 1,
    MicOff = 2,
    WifiOff = 3,
    RecordingTimeout = 4,
    ProcessingTimeout = 5,
    ServiceNotReady = 6,
    NoResultJson = 7,
    ServerCrashed = 8,
};

// The name to send; "UNKNOWN" for a value without a name.
const char* wireName(ClientState state);
const char* wireName(ErrorType error);

}  // namespace OrvaneDA

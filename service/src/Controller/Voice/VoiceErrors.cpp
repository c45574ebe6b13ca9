// SPDX-License-Identifier: Apache-2.0
#include "Controller/Voice/VoiceErrors.h"

#include <voice_control_common.h>

#include "Util/Constants.h"

namespace OrvaneDA {

const char* voiceErrorName(int error) {
    static constexpr struct {
        int error;
        const char* name;
    } NAMES[] = {{VC_ERROR_NONE, "NONE"},
                 {VC_ERROR_OUT_OF_MEMORY, "OUT_OF_MEMORY"},
                 {VC_ERROR_IO_ERROR, "IO_ERROR"},
                 {VC_ERROR_INVALID_PARAMETER, "INVALID_PARAMETER"},
                 {VC_ERROR_TIMED_OUT, "TIMED_OUT"},
                 {VC_ERROR_RECORDER_BUSY, "RECORDER_BUSY"},
                 {VC_ERROR_PERMISSION_DENIED, "PERMISSION_DENIED"},
                 {VC_ERROR_NOT_SUPPORTED, "NOT_SUPPORTED"},
                 {VC_ERROR_INVALID_STATE, "INVALID_STATE"},
                 {VC_ERROR_INVALID_LANGUAGE, "INVALID_LANGUAGE"},
                 {VC_ERROR_ENGINE_NOT_FOUND, "ENGINE_NOT_FOUND"},
                 {VC_ERROR_OPERATION_FAILED, "OPERATION_FAILED"},
                 {VC_ERROR_OPERATION_REJECTED, "OPERATION_REJECTED"},
                 {VC_ERROR_ITERATION_END, "ITERATION_END"},
                 {VC_ERROR_EMPTY, "EMPTY"}};
    for (const auto& row : NAMES) {
        if (row.error == error) {
            return row.name;
        }
    }
    return "VC_ERROR_UNKNOWN";
}

void logIfFailed(const char* call, int result, const Util::Caller& caller) {
    if (result != VC_ERROR_NONE) {
        LOGE_FOR(caller, "%s: %s", call, voiceErrorName(result));
    }
}

ErrorType errorTypeOf(const std::string& message) {
    namespace RecognizerError = Constants::RecognizerError;
    static constexpr struct {
        const char* message;
        ErrorType error;
    } ERRORS[] = {{RecognizerError::SERVER_TIMED_OUT, ErrorType::ProcessingTimeout},
                  {RecognizerError::NETWORK_TIMEOUT, ErrorType::ProcessingTimeout},
                  {RecognizerError::CONNECTION_FAIL, ErrorType::ProcessingTimeout},
                  {RecognizerError::ASR_TIMED_OUT, ErrorType::ProcessingTimeout},
                  {RecognizerError::NLU_EXCEPTION, ErrorType::ServerCrashed},
                  {RecognizerError::UNKNOWN_ERROR, ErrorType::ServerCrashed},
                  {RecognizerError::SERVER_SIDE_PREPARE, ErrorType::ServerCrashed}};
    for (const auto& row : ERRORS) {
        if (message == row.message) {
            return row.error;
        }
    }
    return ErrorType::Default;
}

}  // namespace OrvaneDA

// SPDX-License-Identifier: Apache-2.0
// Errors of the voice-control manager.
#pragma once

#include <string>

#include "ClientState.h"
#include "Util/Log.h"

namespace OrvaneDA {

// The name of the code, from "NONE" to "EMPTY"; "VC_ERROR_UNKNOWN" for any other code.
const char* voiceErrorName(int error);
// Logs a failed call and the name of its error for the caller.
void logIfFailed(const char* call, int result, const Util::Caller& caller = Util::Caller::current());
// Translates the manager's error message for the UI; Default for an unlisted message.
ErrorType errorTypeOf(const std::string& message);

}  // namespace OrvaneDA

// SPDX-License-Identifier: Apache-2.0
// Errors of the voice-control manager.
#pragma once

#include <string>

#include "ClientState.h"
#include "Util/Log.h"

namespace OrvaneDA {

// "NONE" to "EMPTY"; "VC_ERROR_UNKNOWN" for any other code.
const char* voiceErrorName(int error);
// Logs a failed call and its error's name for the caller.
void logIfFailed(const char* call, int result, const Util::Caller& caller = Util::Caller::current());
// What the manager's error message means to the UI; Default for a message that is not listed.
ErrorType errorTypeOf(const std::string& message);

}  // namespace OrvaneDA

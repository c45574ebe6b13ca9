// SPDX-License-Identifier: Apache-2.0
// The JSON text of a result, which the UI reads from a file. Main loop only.
#pragma once

#include <voice_control_common.h>

#include <string>

#include "ClientState.h"
#include "Util/Log.h"

namespace OrvaneDA {

// The JSON of the list's first command; empty if the result has no text or the command has no JSON. Logs for the
// caller.
std::string resultJson(const char* text, vc_cmd_list_s* list, const Util::Caller& caller = Util::Caller::current());
// Replaces the result file. Returns None or NoResultJson.
ErrorType writeResultFile(const std::string& json);

}  // namespace OrvaneDA

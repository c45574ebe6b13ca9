// SPDX-License-Identifier: Apache-2.0
// The requests of this process that wait for a reply. The IO thread receives the replies; callbacks run on the main
// loop.
#pragma once

#include <string>

#include "Request.h"

namespace appfw {

// Returns a token for the request; empty without a callback.
std::string expectReply(const app_control_s& request, app_control_reply_cb callback, void* userData);
// Removes a request that could not be delivered.
void forgetReply(const std::string& token);
// The request was delivered to this connection (unique bus name; empty: it is already gone). If the connection leaves
// the bus before it replies, the result is a failure.
void expectReplyFrom(const std::string& token, const std::string& peer);
// Accepts one reply for each token and ignores unknown tokens.
void takeReply(const std::string& token, app_control_result_e result, Extras extras);

}  // namespace appfw

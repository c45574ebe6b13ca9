// SPDX-License-Identifier: Apache-2.0
// Requests that this process sent and that wait for a reply. The IO thread takes replies in; callbacks run on the main
// loop.
#pragma once

#include <string>

#include "Request.h"

namespace appfw {

// A token for the request; empty without a callback.
std::string expectReply(const app_control_s& request, app_control_reply_cb callback, void* userData);
// The request was not delivered after all.
void forgetReply(const std::string& token);
// The request was delivered to this connection (unique bus name; empty: it has gone already). When it leaves the bus
// before it has answered, the result is a failure.
void expectReplyFrom(const std::string& token, const std::string& peer);
// At most once a token; unknown tokens are ignored.
void takeReply(const std::string& token, app_control_result_e result, Extras extras);

}  // namespace appfw

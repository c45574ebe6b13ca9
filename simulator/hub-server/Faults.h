// SPDX-License-Identifier: Apache-2.0
// What the hub does instead of its normal reply, as the household's file requests.
#pragma once

#include <nlohmann/json.hpp>

#include "hub-server/Message.h"
#include "hub-server/Stream.h"

namespace sim::hub {

// Throws std::exception unless the fault has a known kind and the members that the kind needs.
void checkFault(const nlohmann::json& fault);

struct Exchange {
    const Socket& socket;
    Stream& stream;
    const Answer& answer;  // the normal reply
    const nlohmann::json& fault;
};

// Returns false if the server must close the connection. Throws std::runtime_error if the client closes it.
bool misbehave(const Exchange& exchange);

}  // namespace sim::hub

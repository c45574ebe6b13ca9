// SPDX-License-Identifier: Apache-2.0
// What the hub does instead of a plain answer, as the household's file tells it.
#pragma once

#include <nlohmann/json.hpp>

#include "hub-server/Message.h"
#include "hub-server/Stream.h"

namespace sim::hub {

// Throws std::exception unless it is {"kind": .., "request": N} with what its kind needs.
void checkFault(const nlohmann::json& fault);

struct Exchange {
    const Socket& socket;
    Stream& stream;
    const Answer& answer;  // the one that would be given
    const nlohmann::json& fault;
};

// False when the connection is to be closed. Throws std::runtime_error when the client leaves.
bool misbehave(const Exchange& exchange);

}  // namespace sim::hub

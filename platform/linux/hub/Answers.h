// SPDX-License-Identifier: Apache-2.0
// The hub's JSON, as docs/hub-http.md describes it.
#pragma once

#include <string>
#include <vector>

namespace hub {

struct Named {
    std::string id;
    std::string name;  // empty when the hub gave none
};

// These throw std::exception, with a text for the log, when the answer is another.
std::string readSessionToken(const std::string& json);
// The list under `key`. Ids are not empty, at most `longestId` bytes and hold no zero.
std::vector<Named> readList(const std::string& json, const char* key, std::size_t longestId);

}  // namespace hub

// SPDX-License-Identifier: Apache-2.0
// Parses the hub's JSON replies (docs/hub-http.md). If a reply is malformed, the functions throw std::exception with a
// message for the log.
#pragma once

#include <string>
#include <vector>

namespace hub {

struct Named {
    std::string id;
    std::string name;  // empty if the hub sends none
};

std::string readSessionToken(const std::string& reply);
// The list under `key`. Every id is 1 to `longestId` bytes long and does not contain U+0000.
std::vector<Named> readList(const std::string& reply, const char* key, std::size_t longestId);

}  // namespace hub

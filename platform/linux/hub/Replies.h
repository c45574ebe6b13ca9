// SPDX-License-Identifier: Apache-2.0
// The hub's JSON, as docs/hub-http.md describes it. The functions throw std::exception, with a text for the log, if a
// reply is different.
#pragma once

#include <string>
#include <vector>

namespace hub {

struct Named {
    std::string id;
    std::string name;  // empty if the hub sends none
};

std::string readSessionToken(const std::string& reply);
// The list under `key`. No id is empty, is longer than `longestId` bytes, or contains U+0000.
std::vector<Named> readList(const std::string& reply, const char* key, std::size_t longestId);

}  // namespace hub

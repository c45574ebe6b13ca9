// SPDX-License-Identifier: Apache-2.0
// The household of the simulated hub and its faults, from a JSON file that the hub reads before each request:
//   {"account":  {"guid": "g", "client_id": "c", "access_token": "t"},
//    "families": [{"id": "f1", "name": "Home", "users": [{"id": "u1", "name": "Ann"}]}],
//    "faults":   [{"request": 2, "kind": "error", "status": 503}]}
// A fault applies to the request with its number, counted from 1 since the file changed, or to every request if it has
// no number. The kinds are:
//   error     replies with this "status"
//   redirect  redirects to this "location"
//   body      replies with this text as "body"
//   garbage   replies with random bytes
//   bomb      replies with gzip that unpacks to this number of "megabytes"
//   half      announces a whole reply, sends half of it, and closes
//   stall     announces a whole reply, sends half of it, and waits
//   slow      replies after this number of "milliseconds"
//   trickle   replies with a pause of this number of "milliseconds" after each byte
//   silent    never replies
//   close     closes without a reply
//   cut       sends half of a reply without a length, and closes without the closing message of TLS
//   endless   sends a reply that never ends
// half, stall, cut, and endless also accept a "status" for their reply.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace sim::hub {

class Household {
public:
    // Throws std::exception if the file cannot be read or is invalid.
    explicit Household(const std::string& file);

    // Counts a request and returns its fault; null if it has none. Keeps the household if the file is invalid now.
    nlohmann::json nextFault();
    const nlohmann::json& account() const { return mContent.at("account"); }
    const nlohmann::json& families() const { return mContent.at("families"); }
    // Null if there is no family with this id.
    const nlohmann::json* family(const std::string& id) const;

private:
    void read();

    std::string mFile;
    std::string mText;
    nlohmann::json mContent;
    int mRequests = 0;
};

}  // namespace sim::hub

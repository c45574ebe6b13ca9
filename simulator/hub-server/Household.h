// SPDX-License-Identifier: Apache-2.0
// What the hub knows and how it misbehaves, from a JSON file that is looked at before every request:
//   {"account":  {"guid": "g", "client_id": "c", "access_token": "t"},
//    "families": [{"id": "f1", "name": "Home", "users": [{"id": "u1", "name": "Ann"}]}],
//    "faults":   [{"request": 2, "kind": "error", "status": 503}]}
// A fault is met by the request of that number, counted from 1 since the file last changed, or by every one without a
// number. Its kinds:
//   error     gives this "status"
//   redirect  sends on to this "location"
//   body      gives this text as "body", whatever it is
//   garbage   gives bytes that mean nothing
//   half      promises a whole answer, gives half of it and closes
//   stall     promises a whole answer, gives half of it and falls silent
//   slow      answers after so many "milliseconds"
//   trickle   answers with so many "milliseconds" after every byte
//   silent    never answers
//   close     closes without an answer
//   cut       gives half of an answer without a length and breaks off, without the ending that TLS has
//   endless   begins an answer that never ends
// half, stall, cut and endless take a "status" for their answer, too.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace sim::hub {

class Household {
public:
    // Throws std::exception when the file cannot be read or does not say this.
    explicit Household(const std::string& file);

    // A request comes: counts it and gives its fault, null for none. A file that is broken at that moment changes
    // nothing.
    nlohmann::json nextFault();
    const nlohmann::json& account() const { return mContent.at("account"); }
    const nlohmann::json& families() const { return mContent.at("families"); }
    // Null when there is none of this id.
    const nlohmann::json* family(const std::string& id) const;

private:
    void read();

    std::string mFile;
    std::string mText;
    nlohmann::json mContent;
    int mRequests = 0;
};

}  // namespace sim::hub

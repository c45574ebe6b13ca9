// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "Replies.h"
#include "curl/Client.h"
#include "json/BoundedJson.h"

namespace hub {

constexpr curl::Limits kLimits{5000, 15000, json::kMaxBytes};

// A hub connection over HTTP (docs/hub-http.md). All functions except the constructor block on the network. One thread
// at a time may use it. It never logs tokens or names.
class Connection {
public:
    explicit Connection(const curl::Limits& limits = kLimits);

    // These throw hub::Error.
    void signIn(const std::string& guid, const std::string& accessToken, const std::string& clientId,
                const std::string& serverUri);
    std::vector<Named> families();
    std::vector<Named> usersOf(const std::string& familyId);

private:
    std::vector<Named> list(const std::string& path, const char* key, std::size_t longestId);

    curl::Client mClient;
    std::string mBase;          // the server's address; empty if not signed in
    std::string mSessionToken;  // empty if not signed in
};

}  // namespace hub

// SPDX-License-Identifier: Apache-2.0
// A session with the hub server, over HTTP as docs/hub-http.md describes it. Every call but the constructor blocks for
// the network. Neither tokens nor names ever reach the log.
#pragma once

#include "Answers.h"
#include "curl/Client.h"
#include "json/BoundedJson.h"

namespace hub {

constexpr curl::Limits kLimits{5000, 15000, json::kMaxBytes};

}  // namespace hub

struct ks_server_s {
public:
    explicit ks_server_s(const curl::Limits& limits = hub::kLimits);

    // These throw hub::Fault.
    void signIn(const std::string& guid, const std::string& accessToken, const std::string& clientId,
                const std::string& serverUri);
    std::vector<hub::Named> families();
    std::vector<hub::Named> usersOf(const std::string& familyId);

private:
    std::vector<hub::Named> list(const std::string& path, const char* key, std::size_t longestId);

    curl::Client mClient;
    std::string mBase;   // empty: not signed in
    std::string mToken;  // of the session
};

// SPDX-License-Identifier: Apache-2.0
#include "Connection.h"

#include <cstdlib>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "Error.h"
#include "Exchange.h"
#include "PlainText.h"
#include "curl/Url.h"
#include "kelso_server.h"
#include "process/FaultLog.h"

namespace hub {

namespace {

constexpr char kSessionPath[] = "/v1/session";
constexpr char kFamiliesPath[] = "/v1/families";

std::string authorities() {
    const char* file = getenv("ORVANE_HUB_CA");
    return file != nullptr ? file : "";
}

void checkText(const std::string& text, const char* what) {
    if (!isPlainText(text)) {
        throw Error(KS_SERVER_ERROR_INVALID_PARAMETER,
                    std::string("the ") + what + " is empty or contains a control character");
    }
}

curl::Url parse(const std::string& serverUri) {
    try {
        return curl::Url(serverUri);
    } catch (const std::invalid_argument& error) {
        throw Error(KS_SERVER_ERROR_INVALID_PARAMETER, std::string("the server URI is ") + error.what());
    }
}

std::string signInBody(const std::string& guid, const std::string& clientId) {
    try {
        return nlohmann::json{{"guid", guid}, {"client_id", clientId}}.dump();
    } catch (const nlohmann::json::exception&) {
        throw Error(KS_SERVER_ERROR_INVALID_PARAMETER, "the account's guid or client id is not UTF-8");
    }
}

}  // namespace

Connection::Connection(const curl::Limits& limits) : mClient(limits, authorities()) {}

void Connection::signIn(const std::string& guid, const std::string& accessToken, const std::string& clientId,
                        const std::string& serverUri) {
    mBase.clear();
    mSessionToken.clear();
    checkText(guid, "account's guid");
    checkText(accessToken, "access token");
    checkText(clientId, "client id");
    checkText(serverUri, "server URI");
    const curl::Url url = parse(serverUri);
    if (!url.isSecure() && !url.isLoopback()) {
        process::logFault(DLOG_WARN, "orvane-hub", "plain http",
                          "the connection to the hub uses plain http, which others can read");
    }
    const std::string base = url.base();
    const std::string body = signInBody(guid, clientId);
    mSessionToken = exchange(
        "sign-in", [&] { return mClient.post(base + kSessionPath, accessToken, body); }, readSessionToken);
    mBase = base;
}

std::vector<Named> Connection::families() {
    return list(kFamiliesPath, "families", sizeof(ks_family_s::family_id) - 1);
}

std::vector<Named> Connection::usersOf(const std::string& familyId) {
    return list(std::string(kFamiliesPath) + "/" + curl::escaped(familyId) + "/users", "users",
                sizeof(ks_family_user_s::user_id) - 1);
}

std::vector<Named> Connection::list(const std::string& path, const char* key, std::size_t longestId) {
    if (mBase.empty()) {
        throw Error(KS_SERVER_ERROR_NOT_SIGNED_IN, std::string("cannot list the ") + key + ": not signed in");
    }
    return exchange(
        path, [&] { return mClient.get(mBase + path, mSessionToken); },
        [&](const std::string& reply) { return readList(reply, key, longestId); });
}

}  // namespace hub

// SPDX-License-Identifier: Apache-2.0
#include "Session.h"

#include <cstdlib>
#include <nlohmann/json.hpp>

#include "Fault.h"
#include "PlainText.h"
#include "curl/Url.h"
#include "dlog.h"
#include "kelso_server.h"

namespace {

constexpr char kSessionPath[] = "/v1/session";
constexpr char kFamiliesPath[] = "/v1/families";

std::string authorities() {
    const char* file = getenv("ORVANE_HUB_CA");
    return file != nullptr ? file : "";
}

int codeOf(CURLcode code) {
    switch (code) {
        case CURLE_OUT_OF_MEMORY:
            return KS_SERVER_ERROR_OUT_OF_MEMORY;
        case CURLE_OPERATION_TIMEDOUT:
            return KS_SERVER_ERROR_TIMED_OUT;
        case CURLE_SSL_CONNECT_ERROR:
        case CURLE_PEER_FAILED_VERIFICATION:
        case CURLE_SSL_CERTPROBLEM:
        case CURLE_SSL_CIPHER:
        case CURLE_SSL_CACERT_BADFILE:
        case CURLE_SSL_ISSUER_ERROR:
        case CURLE_SSL_ENGINE_NOTFOUND:
        case CURLE_SSL_ENGINE_SETFAILED:
            return KS_SERVER_ERROR_TLS;
        case CURLE_WRITE_ERROR:
        case CURLE_UNSUPPORTED_PROTOCOL:
        case CURLE_WEIRD_SERVER_REPLY:
        case CURLE_PARTIAL_FILE:
        case CURLE_BAD_CONTENT_ENCODING:
        case CURLE_HTTP2:
        case CURLE_HTTP2_STREAM:
            return KS_SERVER_ERROR_BAD_ANSWER;
        default:
            return KS_SERVER_ERROR_UNREACHABLE;
    }
}

void checkStatus(long status, const std::string& what) {
    if (!curl::isSuccess(status)) {
        const bool isOfHttp = status >= 300 && status <= 599;
        throw hub::Fault(isOfHttp ? static_cast<int>(status) : KS_SERVER_ERROR_BAD_ANSWER,
                         what + ": HTTP status " + std::to_string(status));
    }
}

// Does the exchange and reads its answer; everything that fails names the request.
template <typename Exchange, typename Reader>
auto ask(const std::string& what, Exchange exchange, Reader reader) {
    try {
        const curl::Answer answer = exchange();
        checkStatus(answer.status, what);
        return reader(answer.body);
    } catch (const hub::Fault&) {
        throw;
    } catch (const curl::Error& error) {
        throw hub::Fault(codeOf(error.code()), what + ": " + error.what());
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const nlohmann::json::exception&) {
        // Its own text quotes what was read, which may be a token or a name.
        throw hub::Fault(KS_SERVER_ERROR_BAD_ANSWER, what + ": the answer is no JSON");
    } catch (const std::exception& fault) {
        throw hub::Fault(KS_SERVER_ERROR_BAD_ANSWER, what + ": the answer has " + fault.what());
    }
}

// A text that could not be a line of a request is no credential.
void checkText(const std::string& text, const char* what) {
    if (!hub::isPlainText(text)) {
        throw hub::Fault(KS_SERVER_ERROR_INVALID_PARAMETER, std::string("the ") + what + " is empty or no plain text");
    }
}

std::string baseOf(const std::string& serverUri) {
    try {
        return curl::baseOf(serverUri);
    } catch (const std::invalid_argument& fault) {
        throw hub::Fault(KS_SERVER_ERROR_INVALID_PARAMETER, std::string("the server URI is ") + fault.what());
    }
}

std::string signInText(const std::string& guid, const std::string& clientId) {
    try {
        return nlohmann::json{{"guid", guid}, {"client_id", clientId}}.dump();
    } catch (const nlohmann::json::exception&) {
        throw hub::Fault(KS_SERVER_ERROR_INVALID_PARAMETER, "the account's guid or client id is no UTF-8");
    }
}

}  // namespace

ks_server_s::ks_server_s(const curl::Limits& limits) : mClient(limits, authorities()) {}

void ks_server_s::signIn(const std::string& guid, const std::string& accessToken, const std::string& clientId,
                         const std::string& serverUri) {
    mBase.clear();
    mToken.clear();
    checkText(guid, "account's guid");
    checkText(accessToken, "access token");
    checkText(clientId, "client id");
    checkText(serverUri, "server URI");
    const std::string base = baseOf(serverUri);
    if (!curl::isSecure(base) && !curl::isLoopback(base)) {
        dlog_print(DLOG_WARN, "orvane-hub", "the hub is asked over plain http, which others can read");
    }
    const std::string text = signInText(guid, clientId);
    mToken = ask(
        "sign-in", [&] { return mClient.post(base + kSessionPath, accessToken, text); }, hub::readSessionToken);
    mBase = base;
}

std::vector<hub::Named> ks_server_s::families() {
    return list(kFamiliesPath, "families", sizeof(ks_family_s::family_id) - 1);
}

std::vector<hub::Named> ks_server_s::usersOf(const std::string& familyId) {
    return list(std::string(kFamiliesPath) + "/" + curl::escaped(familyId) + "/users", "users",
                sizeof(ks_family_user_s::user_id) - 1);
}

std::vector<hub::Named> ks_server_s::list(const std::string& path, const char* key, std::size_t longestId) {
    if (mBase.empty()) {
        throw hub::Fault(KS_SERVER_ERROR_NOT_SIGNED_IN, std::string("not signed in, no ") + key);
    }
    return ask(
        path, [&] { return mClient.get(mBase + path, mToken); },
        [&](const std::string& body) { return hub::readList(body, key, longestId); });
}

// SPDX-License-Identifier: Apache-2.0
#include "hub-server/Hub.h"

#include <cctype>
#include <cstdlib>

namespace sim::hub {

namespace {

using nlohmann::json;

constexpr char kFamilies[] = "/v1/families";
constexpr char kUsers[] = "/users";
constexpr char kBearer[] = "Bearer ";

Answer failure(int status, const std::string& why) {
    return {status, json{{"error", why}}.dump(), {}};
}

json namesOf(const json& elements) {
    json list = json::array();
    for (const json& element : elements) {
        list.push_back({{"id", element.at("id")}, {"name", element.at("name")}});
    }
    return list;
}

std::string bearerOf(const Request& request) {
    const std::string value = request.header("authorization");
    return value.rfind(kBearer, 0) == 0 ? value.substr(sizeof kBearer - 1) : std::string();
}

std::string unescaped(const std::string& text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && i + 2 < text.size() && std::isxdigit(static_cast<unsigned char>(text[i + 1])) &&
            std::isxdigit(static_cast<unsigned char>(text[i + 2]))) {
            plain += static_cast<char>(std::strtol(text.substr(i + 1, 2).c_str(), nullptr, 16));
            i += 2;
        } else {
            plain += text[i];
        }
    }
    return plain;
}

// The ID of the path /v1/families/ID/users; empty for another path.
std::string familyIn(const std::string& path) {
    const std::string start = std::string(kFamilies) + "/";
    const std::size_t ends = start.size() + sizeof kUsers - 1;
    if (path.rfind(start, 0) != 0 || path.size() <= ends || path.substr(path.size() - sizeof kUsers + 1) != kUsers) {
        return {};
    }
    return unescaped(path.substr(start.size(), path.size() - ends));
}

}  // namespace

Hub::Outcome Hub::take(const Request& request) {
    const std::lock_guard<std::mutex> lock(mMutex);
    json fault = mHousehold.nextFault();
    const bool signedIn = isSignedIn(request);
    Answer given = answer(request);
    mRecord.write("request", {{"method", request.method},
                              {"path", request.path},
                              {"bearer", !bearerOf(request).empty()},
                              {"signed in", signedIn},
                              {"status", given.status},
                              {"fault", fault.is_null() ? "none" : fault.value("kind", "")}});
    return {given, fault};
}

Answer Hub::answer(const Request& request) {
    if (request.path == "/v1/session") {
        return request.method == "POST" ? signIn(request) : failure(405, "sign in with POST");
    }
    if (!isSignedIn(request)) {
        return failure(401, "not signed in");
    }
    if (request.method != "GET") {
        return failure(405, "ask with GET");
    }
    if (request.path == kFamilies) {
        return {200, json{{"families", namesOf(mHousehold.families())}}.dump(), {}};
    }
    const std::string family = familyIn(request.path);
    return family.empty() ? failure(404, "no such resource") : users(family);
}

Answer Hub::signIn(const Request& request) {
    const json body = json::parse(request.body, nullptr, false);
    const json& account = mHousehold.account();
    if (!body.is_object() || !body.contains("guid") || !body.contains("client_id")) {
        return failure(400, "no guid or client id");
    }
    if (bearerOf(request) != account.at("access_token") || body.at("guid") != account.at("guid") ||
        body.at("client_id") != account.at("client_id")) {
        return failure(401, "no such account");
    }
    const std::string token = "session-" + std::to_string(mSessions.size() + 1);
    mSessions.insert(token);
    return {200, json{{"session_token", token}}.dump(), {}};
}

Answer Hub::users(const std::string& familyId) {
    const json* family = mHousehold.family(familyId);
    if (family == nullptr) {
        return failure(404, "no such family");
    }
    return {200, json{{"users", namesOf(family->at("users"))}}.dump(), {}};
}

bool Hub::isSignedIn(const Request& request) const {
    return mSessions.count(bearerOf(request)) != 0;
}

}  // namespace sim::hub

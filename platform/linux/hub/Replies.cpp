// SPDX-License-Identifier: Apache-2.0
#include "Replies.h"

#include <stdexcept>

#include "PlainText.h"
#include "json/BoundedJson.h"

namespace hub {

namespace {

using nlohmann::json;

constexpr std::size_t kMostRecords = 10000;

// Empty if the member is missing or is not a string.
std::string text(const json& object, const char* key) {
    const auto found = object.find(key);
    return found != object.end() && found->is_string() ? found->get<std::string>() : std::string();
}

json parseObject(const std::string& reply) {
    json root = ::json::parseBounded(reply);
    if (!root.is_object()) {
        throw std::invalid_argument("it is not a JSON object");
    }
    return root;
}

Named readNamed(const json& element, std::size_t longestId) {
    if (!element.is_object()) {
        throw std::invalid_argument("an element is not an object");
    }
    Named named{text(element, "id"), text(element, "name")};
    if (named.id.empty() || named.id.size() > longestId || named.id.find('\0') != std::string::npos) {
        throw std::invalid_argument("an id is missing or invalid");
    }
    return named;
}

}  // namespace

std::string readSessionToken(const std::string& reply) {
    std::string token = text(parseObject(reply), "session_token");
    if (!isPlainText(token)) {
        throw std::invalid_argument("it has no session token");
    }
    return token;
}

std::vector<Named> readList(const std::string& reply, const char* key, std::size_t longestId) {
    const json root = parseObject(reply);
    const auto list = root.find(key);
    if (list == root.end() || !list->is_array()) {
        throw std::invalid_argument(std::string("it has no list of ") + key);
    }
    if (list->size() > kMostRecords) {
        throw std::invalid_argument(std::string("it has too many ") + key);
    }
    std::vector<Named> all;
    for (const json& element : *list) {
        all.push_back(readNamed(element, longestId));
    }
    return all;
}

}  // namespace hub

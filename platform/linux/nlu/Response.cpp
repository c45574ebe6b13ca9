// SPDX-License-Identifier: Apache-2.0
#include "Response.h"

#include <stdexcept>

#include "json/BoundedJson.h"

namespace nlu {

namespace {

using nlohmann::json;

Text text(const json& object, const char* key) {
    const auto found = object.find(key);
    return found != object.end() && found->is_string() ? Text(found->get<std::string>()) : std::nullopt;
}

// Null if the member is not an object.
const json* part(const json& object, const char* key) {
    const auto found = object.find(key);
    return found != object.end() && found->is_object() ? &*found : nullptr;
}

vrp_action_data_s actionData(const json& object) {
    vrp_action_data_s data;
    if (const json* launch = part(object, "launch_apps")) {
        data.launchApps = {text(*launch, "package")};
    }
    if (const json* search = part(object, "web_search")) {
        data.webSearch = {text(*search, "provider"), text(*search, "search_term"), text(*search, "url")};
    }
    if (const json* recipe = part(object, "recipe")) {
        data.recipe = {text(*recipe, "package")};
    }
    return data;
}

}  // namespace

vrp_response_data_s parseResponse(const char* textOfJson) {
    const json root = ::json::parseBounded(textOfJson);
    if (!root.is_object()) {
        throw std::invalid_argument("not a JSON object");
    }
    vrp_response_data_s response{text(root, "action_type"), text(root, "agent"), text(root, "action_name"), {}};
    if (const json* data = part(root, "action_data")) {
        response.actionData = actionData(*data);
    }
    return response;
}

}  // namespace nlu

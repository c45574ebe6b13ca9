// SPDX-License-Identifier: Apache-2.0
// A parsed NLU result. docs/understanding.md describes the JSON.
#pragma once

#include <optional>
#include <string>

using Text = std::optional<std::string>;

struct vrp_launch_apps_data_s {
    Text package;
};
struct vrp_web_search_data_s {
    Text provider;
    Text searchTerm;
    Text url;
};
struct vrp_recipe_data_s {
    Text package;
};
struct vrp_action_data_s {
    std::optional<vrp_launch_apps_data_s> launchApps;
    std::optional<vrp_web_search_data_s> webSearch;
    std::optional<vrp_recipe_data_s> recipe;
};
struct vrp_response_data_s {
    Text actionType;
    Text agent;
    Text actionName;
    std::optional<vrp_action_data_s> actionData;
};

namespace nlu {

// A missing part, or one of the wrong type, is absent. Throws std::exception if the text is not a JSON object.
vrp_response_data_s parseResponse(const char* json);

}  // namespace nlu

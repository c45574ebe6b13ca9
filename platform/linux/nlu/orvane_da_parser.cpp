// SPDX-License-Identifier: Apache-2.0
#include "orvane_da_parser.h"

#include <cstring>
#include <memory>

#include "Response.h"
#include "process/Guard.h"

namespace {

// Copies the text up to the first zero byte. The caller frees the copy with free().
int copyText(const Text& text, char** out) {
    *out = nullptr;
    if (!text) {
        return VRP_ERROR_NO_DATA;
    }
    *out = strdup(text->c_str());
    return *out ? VRP_ERROR_NONE : VRP_ERROR_OUT_OF_MEMORY;
}

template <typename Owner>
int getText(const Owner* owner, Text Owner::*member, char** out) {
    return owner && out ? copyText(owner->*member, out) : VRP_ERROR_INVALID_PARAMETER;
}

template <typename Owner, typename Part>
int getPart(Owner* owner, std::optional<Part> Owner::*member, Part** out) {
    if (!owner || !out) {
        return VRP_ERROR_INVALID_PARAMETER;
    }
    *out = owner->*member ? &*(owner->*member) : nullptr;
    return *out ? VRP_ERROR_NONE : VRP_ERROR_NO_DATA;
}

}  // namespace

extern "C" {

vrp_response_data_s* vrp_response_data_parse(const char* json) {
    if (!json) {
        return nullptr;
    }
    constexpr vrp_response_data_s* failure = nullptr;
    return process::guarded(failure, "vrp_response_data_parse",
                            [&] { return std::make_unique<vrp_response_data_s>(nlu::parseResponse(json)).release(); });
}

void vrp_response_data_destroy(vrp_response_data_s* response) {
    std::unique_ptr<vrp_response_data_s>{response};
}

int vrp_response_data_get_action_type(vrp_response_data_s* response, char** action_type) {
    return getText(response, &vrp_response_data_s::actionType, action_type);
}

int vrp_response_data_get_agent(vrp_response_data_s* response, char** agent) {
    return getText(response, &vrp_response_data_s::agent, agent);
}

int vrp_response_data_get_action_name(vrp_response_data_s* response, char** action_name) {
    return getText(response, &vrp_response_data_s::actionName, action_name);
}

int vrp_response_data_get_action_data(vrp_response_data_s* response, vrp_action_data_s** action_data) {
    return getPart(response, &vrp_response_data_s::actionData, action_data);
}

int vrp_launch_apps_action_data_get_launch_apps_data(vrp_action_data_s* action_data, vrp_launch_apps_data_s** data) {
    return getPart(action_data, &vrp_action_data_s::launchApps, data);
}

int vrp_launch_apps_data_get_package(vrp_launch_apps_data_s* data, char** package) {
    return getText(data, &vrp_launch_apps_data_s::package, package);
}

int vrp_web_search_action_data_get_web_search_data(vrp_action_data_s* action_data, vrp_web_search_data_s** data) {
    return getPart(action_data, &vrp_action_data_s::webSearch, data);
}

int vrp_web_search_data_get_provider(vrp_web_search_data_s* data, char** provider) {
    return getText(data, &vrp_web_search_data_s::provider, provider);
}

int vrp_web_search_data_get_search_term(vrp_web_search_data_s* data, char** search_term) {
    return getText(data, &vrp_web_search_data_s::searchTerm, search_term);
}

int vrp_web_search_data_get_url(vrp_web_search_data_s* data, char** url) {
    return getText(data, &vrp_web_search_data_s::url, url);
}

int vrp_recipe_action_data_get_recipe_data(vrp_action_data_s* action_data, vrp_recipe_data_s** data) {
    return getPart(action_data, &vrp_action_data_s::recipe, data);
}

int vrp_recipe_data_get_package(vrp_recipe_data_s* data, char** package) {
    return getText(data, &vrp_recipe_data_s::package, package);
}
}

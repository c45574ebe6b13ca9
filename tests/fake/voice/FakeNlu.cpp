// SPDX-License-Identifier: Apache-2.0
#include "fake/voice/FakeNlu.h"

#include <orvane_da_parser.h>
#include <string.h>

#include "fake/Platform.h"

using fake::platform;
using fake::str;

struct vrp_response_data_s {
    fake::NluResult result;
};

namespace {

std::optional<fake::NluResult> present;
int open = 0;

const bool registered = platform().addReset([] {
    present.reset();
    open = 0;
});

int give(const char* function, const std::optional<std::string>& value, char** out) {
    *out = value ? strdup(value->c_str()) : nullptr;
    return platform().call(function, {}, value ? VRP_ERROR_NONE : VRP_ERROR_NO_DATA);
}

// Each part is the response itself, cast to another type.
template <typename Part, typename From>
int givePart(const char* function, bool there, From* from, Part** out) {
    const int result = platform().call(function, {}, there ? VRP_ERROR_NONE : VRP_ERROR_NO_DATA);
    *out = there && result == VRP_ERROR_NONE ? reinterpret_cast<Part*>(from) : nullptr;
    return result;
}

template <typename Part>
const fake::NluResult& of(Part* part) {
    return reinterpret_cast<vrp_response_data_s*>(part)->result;
}

}  // namespace

namespace fake {

void setNluResult(const NluResult& result) {
    present = result;
}
void setNluUnparsable() {
    present.reset();
}
int openResponses() {
    return open;
}

}  // namespace fake

extern "C" {

vrp_response_data_s* vrp_response_data_parse(const char* json) {
    platform().call("vrp_response_data_parse", {json});
    if (!present) {
        return nullptr;
    }
    ++open;
    return new vrp_response_data_s{*present};
}

void vrp_response_data_destroy(vrp_response_data_s* response) {
    platform().call("vrp_response_data_destroy");
    --open;
    delete response;
}

int vrp_response_data_get_action_type(vrp_response_data_s* response, char** out) {
    return give("vrp_response_data_get_action_type", of(response).actionType, out);
}

int vrp_response_data_get_agent(vrp_response_data_s* response, char** out) {
    return give("vrp_response_data_get_agent", of(response).agent, out);
}

int vrp_response_data_get_action_name(vrp_response_data_s* response, char** out) {
    return give("vrp_response_data_get_action_name", of(response).actionName, out);
}

int vrp_response_data_get_action_data(vrp_response_data_s* response, vrp_action_data_s** out) {
    return givePart("vrp_response_data_get_action_data", of(response).actionData, response, out);
}

int vrp_launch_apps_action_data_get_launch_apps_data(vrp_action_data_s* data, vrp_launch_apps_data_s** out) {
    return givePart("vrp_launch_apps_action_data_get_launch_apps_data", of(data).launchPackage.has_value(), data, out);
}

int vrp_launch_apps_data_get_package(vrp_launch_apps_data_s* data, char** out) {
    return give("vrp_launch_apps_data_get_package", of(data).launchPackage, out);
}

int vrp_web_search_action_data_get_web_search_data(vrp_action_data_s* data, vrp_web_search_data_s** out) {
    return givePart("vrp_web_search_action_data_get_web_search_data", of(data).webSearch.has_value(), data, out);
}

int vrp_web_search_data_get_provider(vrp_web_search_data_s* data, char** out) {
    return give("vrp_web_search_data_get_provider", of(data).webSearch->provider, out);
}

int vrp_web_search_data_get_search_term(vrp_web_search_data_s* data, char** out) {
    return give("vrp_web_search_data_get_search_term", of(data).webSearch->term, out);
}

int vrp_web_search_data_get_url(vrp_web_search_data_s* data, char** out) {
    return give("vrp_web_search_data_get_url", of(data).webSearch->url, out);
}

int vrp_recipe_action_data_get_recipe_data(vrp_action_data_s* data, vrp_recipe_data_s** out) {
    return givePart("vrp_recipe_action_data_get_recipe_data", of(data).recipePackage.has_value(), data, out);
}

int vrp_recipe_data_get_package(vrp_recipe_data_s* data, char** out) {
    return give("vrp_recipe_data_get_package", of(data).recipePackage, out);
}

}  // extern "C"

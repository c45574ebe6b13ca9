// SPDX-License-Identifier: Apache-2.0
// A result as JSON, read in the same way as the service reads it.
#include <cstdlib>
#include <memory>
#include <string>

#include "Entries.h"
#include "orvane_da_parser.h"

namespace fuzz {
namespace {

template <typename Owner>
void readText(int (*get)(Owner*, char**), Owner* owner) {
    char* text = nullptr;
    const int code = get(owner, &text);
    require((code == VRP_ERROR_NONE) == (text != nullptr), "there is a text if and only if there is no error");
    std::free(text);
}

template <typename Part>
Part* part(int (*get)(vrp_action_data_s*, Part**), vrp_action_data_s* of) {
    Part* found = nullptr;
    const int code = get(of, &found);
    require((code == VRP_ERROR_NONE) == (found != nullptr), "there is a part if and only if there is no error");
    return found;
}

}  // namespace

void nluResult(std::string_view bytes) {
    const std::unique_ptr<vrp_response_data_s, decltype(&vrp_response_data_destroy)> response(
        vrp_response_data_parse(std::string(bytes).c_str()), vrp_response_data_destroy);
    if (!response) {
        return;
    }
    readText(vrp_response_data_get_action_type, response.get());
    readText(vrp_response_data_get_agent, response.get());
    readText(vrp_response_data_get_action_name, response.get());
    vrp_action_data_s* data = nullptr;
    if (vrp_response_data_get_action_data(response.get(), &data) != VRP_ERROR_NONE) {
        return;
    }
    if (auto* apps = part(vrp_launch_apps_action_data_get_launch_apps_data, data)) {
        readText(vrp_launch_apps_data_get_package, apps);
    }
    if (auto* search = part(vrp_web_search_action_data_get_web_search_data, data)) {
        readText(vrp_web_search_data_get_provider, search);
        readText(vrp_web_search_data_get_search_term, search);
        readText(vrp_web_search_data_get_url, search);
    }
    if (auto* recipe = part(vrp_recipe_action_data_get_recipe_data, data)) {
        readText(vrp_recipe_data_get_package, recipe);
    }
}

}  // namespace fuzz

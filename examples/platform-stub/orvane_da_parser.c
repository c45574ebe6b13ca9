/* SPDX-License-Identifier: Apache-2.0 */
/* No result is understood. */
#include <orvane_da_parser.h>
#include <stddef.h>

vrp_response_data_s* vrp_response_data_parse(const char* json) {
    return NULL;
}

void vrp_response_data_destroy(vrp_response_data_s* response) {}

int vrp_response_data_get_action_type(vrp_response_data_s* response, char** action_type) {
    return VRP_ERROR_NO_DATA;
}

int vrp_response_data_get_agent(vrp_response_data_s* response, char** agent) {
    return VRP_ERROR_NO_DATA;
}

int vrp_response_data_get_action_name(vrp_response_data_s* response, char** action_name) {
    return VRP_ERROR_NO_DATA;
}

int vrp_response_data_get_action_data(vrp_response_data_s* response, vrp_action_data_s** action_data) {
    return VRP_ERROR_NO_DATA;
}

int vrp_launch_apps_action_data_get_launch_apps_data(vrp_action_data_s* action_data, vrp_launch_apps_data_s** data) {
    return VRP_ERROR_NO_DATA;
}

int vrp_launch_apps_data_get_package(vrp_launch_apps_data_s* data, char** package) {
    return VRP_ERROR_NO_DATA;
}

int vrp_web_search_action_data_get_web_search_data(vrp_action_data_s* action_data, vrp_web_search_data_s** data) {
    return VRP_ERROR_NO_DATA;
}

int vrp_web_search_data_get_provider(vrp_web_search_data_s* data, char** provider) {
    return VRP_ERROR_NO_DATA;
}

int vrp_web_search_data_get_search_term(vrp_web_search_data_s* data, char** search_term) {
    return VRP_ERROR_NO_DATA;
}

int vrp_web_search_data_get_url(vrp_web_search_data_s* data, char** url) {
    return VRP_ERROR_NO_DATA;
}

int vrp_recipe_action_data_get_recipe_data(vrp_action_data_s* action_data, vrp_recipe_data_s** data) {
    return VRP_ERROR_NO_DATA;
}

int vrp_recipe_data_get_package(vrp_recipe_data_s* data, char** package) {
    return VRP_ERROR_NO_DATA;
}

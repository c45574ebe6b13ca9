// SPDX-License-Identifier: Apache-2.0
/* Parser of NLU results. Any thread; one thread at a time may use a response. */
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

typedef struct vrp_response_data_s vrp_response_data_s;
typedef struct vrp_action_data_s vrp_action_data_s;
typedef struct vrp_launch_apps_data_s vrp_launch_apps_data_s;
typedef struct vrp_web_search_data_s vrp_web_search_data_s;
typedef struct vrp_recipe_data_s vrp_recipe_data_s;

typedef enum {
    VRP_ERROR_NONE = 0,
    VRP_ERROR_OUT_OF_MEMORY = -12,
    VRP_ERROR_INVALID_PARAMETER = -22,
    VRP_ERROR_NO_DATA = -1001, /* the part is missing or has the wrong type */
} vrp_error_e;

/* Null if the text is not an NLU result. The caller frees the response with vrp_response_data_destroy. */
vrp_response_data_s* vrp_response_data_parse(const char* json);
void vrp_response_data_destroy(vrp_response_data_s* response);

/* All getters return vrp_error_e. The caller frees the string with free(); an absent string is null. */
int vrp_response_data_get_action_type(vrp_response_data_s* response, char** action_type);
int vrp_response_data_get_agent(vrp_response_data_s* response, char** agent);
int vrp_response_data_get_action_name(vrp_response_data_s* response, char** action_name);

/* The response owns its parts, which are valid as long as the response exists. An absent part is null. */
int vrp_response_data_get_action_data(vrp_response_data_s* response, vrp_action_data_s** action_data);
int vrp_launch_apps_action_data_get_launch_apps_data(vrp_action_data_s* action_data, vrp_launch_apps_data_s** data);
int vrp_launch_apps_data_get_package(vrp_launch_apps_data_s* data, char** package);
int vrp_web_search_action_data_get_web_search_data(vrp_action_data_s* action_data, vrp_web_search_data_s** data);
int vrp_web_search_data_get_provider(vrp_web_search_data_s* data, char** provider);
int vrp_web_search_data_get_search_term(vrp_web_search_data_s* data, char** search_term);
int vrp_web_search_data_get_url(vrp_web_search_data_s* data, char** url);
int vrp_recipe_action_data_get_recipe_data(vrp_action_data_s* action_data, vrp_recipe_data_s** data);
int vrp_recipe_data_get_package(vrp_recipe_data_s* data, char** package);

#ifdef __cplusplus
}
#endif

// SPDX-License-Identifier: Apache-2.0
#include "Controller/Voice/ResultDispatcher.h"

#include <memory>
#include <utility>

#include "Controller/Voice/AppLauncher.h"
#include "Controller/Voice/RecipeRouting.h"
#include "Util/Text.h"
#include "Util/WebLauncher.h"

namespace OrvaneDA {

namespace {

using Util::getTrimmedStringFromVRP;

struct DestroyResponse {
    void operator()(vrp_response_data_s* response) const noexcept { vrp_response_data_destroy(response); }
};

// Null if the response has no such part. The response owns it.
vrp_recipe_data_s* recipeOf(vrp_response_data_s* response) {
    vrp_action_data_s* actionData = nullptr;
    vrp_recipe_data_s* recipe = nullptr;
    vrp_response_data_get_action_data(response, &actionData);
    if (actionData != nullptr) {
        vrp_recipe_action_data_get_recipe_data(actionData, &recipe);
    }
    return recipe;
}

}  // namespace

ResultDispatcher::ResultDispatcher(std::function<void()> cancelRecognition)
    : mCancelRecognition(std::move(cancelRecognition)) {}

bool ResultDispatcher::dispatch(const std::string& json, vc_cmd_list_s* list, const Util::Caller& caller) const {
    const std::unique_ptr<vrp_response_data_s, DestroyResponse> response(vrp_response_data_parse(json.c_str()));
    if (response == nullptr) {
        return false;
    }
    const std::string actionType = getTrimmedStringFromVRP(vrp_response_data_get_action_type, response.get());
    const std::string agent = getTrimmedStringFromVRP(vrp_response_data_get_agent, response.get());
    const std::string actionName = getTrimmedStringFromVRP(vrp_response_data_get_action_name, response.get());
    bool carriedOut = true;
    if (actionName == "Restricted" || actionType == "Follow-Up") {
        mCancelRecognition();
        carriedOut = false;
    } else if (agent == "Launch Apps") {
        AppLauncher::launchApps(response.get());
    } else if (agent == "Naver" || agent == "WebSearch") {
        Util::WebLauncher::launch(response.get());
    }
    // Routes a recipe command even if the recognition was canceled above.
    if (agent == "Recipe" && handleRecipe(response.get(), actionName, list, caller)) {
        carriedOut = false;
    }
    return carriedOut;
}

// Returns false when the response has no recipe.
bool ResultDispatcher::handleRecipe(vrp_response_data_s* response, const std::string& actionName, vc_cmd_list_s* list,
                                    const Util::Caller& caller) const {
    if (isRecipeAnswer(actionName)) {
        mCancelRecognition();
        return true;
    }
    vrp_recipe_data_s* recipe = recipeOf(response);
    if (recipe == nullptr) {
        return false;
    }
    routeRecipe(recipe, actionName, list, caller);
    return true;
}

}  // namespace OrvaneDA

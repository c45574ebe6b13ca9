// SPDX-License-Identifier: Apache-2.0
#include "Controller/Voice/RecipeRouting.h"

#include <app_manager.h>
#include <voice_control_manager.h>

#include <algorithm>
#include <iterator>
#include <vector>

#include "Util/AppControl.h"
#include "Util/Constants.h"
#include "Util/SystemConfig.h"
#include "Util/Text.h"

namespace OrvaneDA {

namespace {

namespace App = Constants::App;

// The application that serves a partner's recipes.
std::string recipeAppOf(const std::string& package) {
    if (package == App::RECIPE_PARTNER_DELICOOK) {
        return App::RECIPE_WEB_DATABASE;
    }
    if (package == App::RECIPE_PARTNER_GENERAL) {
        const int country = Util::systemConfig().getSystemCountry();
        return country == Util::Country::FR ? App::RECIPE_WEBLINK_MARMITON : App::RECIPE_SERVICE;
    }
    return package;
}

std::string appIdOf(vc_cmd_h command) {
    int pid = -1;
    vc_cmd_get_pid(command, &pid);
    char* appId = nullptr;
    app_manager_get_app_id(pid, &appId);
    return Util::copied(Util::PlatformText(appId));
}

void keepCommandsOf(const std::string& package, vc_cmd_list_s* list, const Util::Caller& caller) {
    std::vector<vc_cmd_h> others;
    for (int result = vc_cmd_list_first(list); result == VC_ERROR_NONE; result = vc_cmd_list_next(list)) {
        vc_cmd_h command = nullptr;
        vc_cmd_list_get_current(list, &command);
        const std::string appId = appIdOf(command);
        LOGD_FOR(caller, "target (%s)", appId.c_str());
        if (appId != package) {
            LOGD_FOR(caller, "remove target (%s)", appId.c_str());
            others.push_back(command);
        }
    }
    for (vc_cmd_h command : others) {
        vc_cmd_list_remove(list, command);
    }
}

}  // namespace

bool isRecipeAnswer(const std::string& actionName) {
    static constexpr const char* ANSWERS[] = {"No Previous Step",
                                              "No Next Step",
                                              "Read Out Is Already Playing",
                                              "Read Out Is Already Running",
                                              "Recipe App Already Launched",
                                              "Recipe Page Is Not Open",
                                              "Read Out Is Already Paused",
                                              "Read Out Not Started"};
    return std::find(std::begin(ANSWERS), std::end(ANSWERS), actionName) != std::end(ANSWERS);
}

void routeRecipe(vrp_recipe_data_s* recipe, const std::string& actionName, vc_cmd_list_s* list,
                 const Util::Caller& caller) {
    std::string package = recipeAppOf(Util::getTrimmedStringFromVRP(vrp_recipe_data_get_package, recipe));
    LOGD_FOR(caller, "package = %s", package.c_str());
    if (actionName == "Open Recipe" && package == App::RECIPE_PARTNER_KOREA) {
        Util::AppControlData request;
        request.setOperation(APP_CONTROL_OPERATION_MAIN).setPackageName(package);
        Util::AppControl::performAppControl(request);
        package = App::RECIPE_NOBODY;
    }
    keepCommandsOf(package, list, caller);
    vc_mgr_set_selected_results(list);
}

}  // namespace OrvaneDA

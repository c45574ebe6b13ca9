// SPDX-License-Identifier: Apache-2.0
#include "Controller/Voice/AppLauncher.h"

#include "Util/AppControl.h"
#include "Util/Constants.h"
#include "Util/Log.h"
#include "Util/SystemConfig.h"
#include "Util/Text.h"

namespace OrvaneDA {

namespace {

namespace App = Constants::App;
using Util::getTrimmedStringFromVRP;

// The application to launch for `package` in a result. In some regions, another application replaces the general recipe
// partner. Some countries have no recipe application.
std::string appToLaunch(const std::string& package) {
    Util::SystemConfig& config = Util::systemConfig();
    const int region = config.getSystemRegion();
    const int country = config.getSystemCountry();
    if (package != App::RECIPE_PARTNER_GENERAL) {
        return package;
    }
    if (country == Util::Country::SE || country == Util::Country::NO) {
        return App::RECIPE_NOT_SUPPORTED;
    }
    switch (region) {
        case Util::Region::KR:
            return App::RECIPE_PARTNER_DELICOOK;
        case Util::Region::EU:
            return App::RECIPE_WEBLINK_ALLRECIPES;
        default:
            return package;
    }
}

}  // namespace

void AppLauncher::launchApps(vrp_response_data_s* response) {
    Util::AppControlData request;
    request.setOperation(APP_CONTROL_OPERATION_MAIN);
    const std::string actionName = getTrimmedStringFromVRP(vrp_response_data_get_action_name, response);
    if (actionName == "Go to Home Screen") {
        request.setPackageName(App::HOME_SCREEN);
        Util::AppControl::performAppControl(request);
        return;
    }
    vrp_action_data_s* actionData = nullptr;
    vrp_launch_apps_data_s* data = nullptr;
    int result = vrp_response_data_get_action_data(response, &actionData);
    if (actionData != nullptr) {
        result = vrp_launch_apps_action_data_get_launch_apps_data(actionData, &data);
    }
    if (data == nullptr) {
        LOGE("vrp_response_data_get_action_data() failed: [%d]", result);
        return;
    }
    const std::string package = appToLaunch(getTrimmedStringFromVRP(vrp_launch_apps_data_get_package, data));
    if (package == App::RECIPE_NOT_SUPPORTED) {
        LOGE("Not supported recipe app name");
        return;
    }
    request.setPackageName(package);
    request.setTerminateRequest(actionName == "Close App");
    Util::AppControl::performAppControl(request);
}

}  // namespace OrvaneDA

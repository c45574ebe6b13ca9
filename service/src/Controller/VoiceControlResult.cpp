// SPDX-License-Identifier: Apache-2.0
// What the service itself does with a final result: nothing, cancel, launch an application, open a web search, or leave
// a recipe command to one recipe application. The UI reads the rest from the result file.
#include <app_manager.h>

#include <algorithm>
#include <iterator>

#include "Controller/VoiceControl.h"
#include "Util/AppControl.h"
#include "Util/Constants.h"
#include "Util/FileHelper.h"
#include "Util/Log.h"
#include "Util/Singleton.h"
#include "Util/SystemConfig.h"
#include "Util/Text.h"
#include "Util/WebLauncher.h"

namespace OrvaneDA {

namespace {

namespace App = Constants::App;
using Util::getTrimmedStringFromVRP;

Util::SystemConfig& config() {
    return *Util::Singleton<Util::SystemConfig>::getInstance();
}

// Answers that the UI shows from the result; no recipe application is told.
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

// The application that serves a partner's recipes here.
std::string recipeAppOf(const std::string& package) {
    if (package == App::RECIPE_PARTNER_DELICOOK) {
        return App::RECIPE_WEB_DATABASE;
    }
    if (package == App::RECIPE_PARTNER_GENERAL) {
        return config().getSystemCountry() == Util::Country::FR ? App::RECIPE_WEBLINK_MARMITON : App::RECIPE_SERVICE;
    }
    return package;
}

// The application to start where the general recipe partner's is asked for.
std::string generalRecipeAppHere(const std::string& package) {
    const int region = config().getSystemRegion();
    const int country = config().getSystemCountry();
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

std::string appIdOf(vc_cmd_h command) {
    int pid = -1;
    vc_cmd_get_pid(command, &pid);
    char* appId = nullptr;
    app_manager_get_app_id(pid, &appId);
    return Util::copied(Util::PlatformText(appId));
}

// The manager then delivers the result to the commands of `package` only.
void keepOnly(vc_cmd_list_s* list, const std::string& package) {
    std::vector<vc_cmd_h> others;
    for (int result = vc_cmd_list_first(list); result == VC_ERROR_NONE; result = vc_cmd_list_next(list)) {
        vc_cmd_h command = nullptr;
        vc_cmd_list_get_current(list, &command);
        const std::string appId = appIdOf(command);
        LOGD("target (%s)", appId.c_str());
        if (appId != package) {
            LOGD("remove target (%s)", appId.c_str());
            others.push_back(command);
        }
    }
    for (vc_cmd_h command : others) {
        vc_cmd_list_remove(list, command);
    }
    vc_mgr_set_selected_results(list);
}

}  // namespace

std::string VoiceControl::resultJson(const char* text, vc_cmd_list_s* list) {
    if (text == nullptr) {
        return "";
    }
    LOGD("Result Text - %s", text);
    vc_cmd_h command = nullptr;
    char* json = nullptr;
    vc_cmd_list_first(list);
    vc_cmd_list_get_current(list, &command);
    vc_cmd_get_nlu_json(command, &json);
    const Util::PlatformText owned(json);
    if (owned != nullptr) {
        LOGD("Json Text - %s", owned.get());
    }
    return Util::copied(owned);
}

ErrorType VoiceControl::writeResult(const std::string& json) {
    Util::FileContent file(Constants::File::RESULT_JSON);
    file.setCopiedData(json.c_str(), static_cast<int>(json.size()));
    file.nullTerminate = true;
    return Util::FileHelper::write(file) ? ErrorType::None : ErrorType::NoResultJson;
}

bool VoiceControl::_vc_all_result_cb(vc_result_event_e event, vc_cmd_list_s* list, const char* result, const char*,
                                     void* user_data) noexcept {
    auto& session = *static_cast<VoiceControl*>(user_data);
    LOGD("==== All result cb ====");
    if (session.mResultHandled) {
        LOGW("Invalid result cb!");
        session.cancelRecognition(true, false);
        return false;
    }
    session.mResultHandled = true;
    session.mErrorMessage.clear();
    if (event == VC_RESULT_EVENT_REJECTED) {
        LOGD("Rejected event");
        session.syncAppState(ClientState::Error, ErrorType::Default);
        session.cancelRecognition(true, false);
        return false;
    }
    const std::string json = session.resultJson(result, list);
    session.syncAppState(ClientState::Ready, session.writeResult(json));
    vrp_response_data_s* response = vrp_response_data_parse(json.c_str());
    if (response == nullptr) {
        return false;
    }
    const bool launched = session.dispatch(response, list);
    vrp_response_data_destroy(response);
    return launched;
}

bool VoiceControl::dispatch(vrp_response_data_s*& response, vc_cmd_list_s* list) {
    const std::string actionType = getTrimmedStringFromVRP(vrp_response_data_get_action_type, response);
    const std::string agent = getTrimmedStringFromVRP(vrp_response_data_get_agent, response);
    const std::string actionName = getTrimmedStringFromVRP(vrp_response_data_get_action_name, response);
    bool launched = true;
    if (actionName == "Restricted" || actionType == "Follow-Up") {
        cancelRecognition(true, false);
        launched = false;
    } else if (agent == "Launch Apps") {
        launchApps(response);
    } else if (agent == "Naver" || agent == "WebSearch") {
        Util::WebLauncher::launch(response);
    }
    if (agent != "Recipe") {
        return launched;
    }
    if (isRecipeAnswer(actionName)) {
        cancelRecognition(true, false);
        return false;
    }
    vrp_action_data_s* actionData = nullptr;
    vrp_recipe_data_s* recipe = nullptr;
    vrp_response_data_get_action_data(response, &actionData);
    if (actionData != nullptr) {
        vrp_recipe_action_data_get_recipe_data(actionData, &recipe);
    }
    if (recipe == nullptr) {
        return launched;
    }
    routeRecipe(recipe, actionName, list);
    return false;
}

void VoiceControl::routeRecipe(vrp_recipe_data_s* recipe, const std::string& actionName, vc_cmd_list_s* list) {
    std::string package = recipeAppOf(getTrimmedStringFromVRP(vrp_recipe_data_get_package, recipe));
    LOGD("package = %s", package.c_str());
    if (actionName == "Open Recipe" && package == App::RECIPE_PARTNER_KOREA) {
        Util::AppControlData request;
        request.setOperation(APP_CONTROL_OPERATION_MAIN).setPackageName(package);
        Util::AppControl::performAppControl(request);
        package = App::RECIPE_NOBODY;
    }
    keepOnly(list, package);
}

void VoiceControl::launchApps(vrp_response_data_s*& response) {
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
    const std::string package = generalRecipeAppHere(getTrimmedStringFromVRP(vrp_launch_apps_data_get_package, data));
    if (package == App::RECIPE_NOT_SUPPORTED) {
        LOGE("Not supported recipe app name");
        return;
    }
    request.setPackageName(package);
    request.setTerminateRequest(actionName == "Close App");
    Util::AppControl::performAppControl(request);
}

}  // namespace OrvaneDA

// SPDX-License-Identifier: Apache-2.0
#include "Util/WebLauncher.h"

#include <algorithm>
#include <iterator>

#include "Util/AppControl.h"
#include "Util/Constants.h"
#include "Util/Log.h"
#include "Util/Text.h"

namespace Util {

namespace {

bool isShownByUiOnly(const std::string& actionName) {
    static constexpr const char* ANSWERS[] = {"Websearch Disabled",
                                              "News Engine Unavailable",
                                              "Search Engine Unavailable",
                                              "Website Unavailable",
                                              "Pseudo Escalating Error Drive Mode",
                                              "Unsupported Feature"};
    return std::find(std::begin(ANSWERS), std::end(ANSWERS), actionName) != std::end(ANSWERS);
}

// The search term is not escaped.
std::string urlOf(vrp_web_search_data_s* search) {
    const std::string provider = getTrimmedStringFromVRP(vrp_web_search_data_get_provider, search);
    if (provider == "google" || provider == "Google") {
        return Constants::Web::SEARCH_PAGE + getTrimmedStringFromVRP(vrp_web_search_data_get_search_term, search);
    }
    return getTrimmedStringFromVRP(vrp_web_search_data_get_url, search);
}

}  // namespace

void WebLauncher::launch(vrp_response_data_s* response) {
    const std::string actionName = getTrimmedStringFromVRP(vrp_response_data_get_action_name, response);
    if (actionName.empty()) {
        return;
    }
    LOGD("action name : %s", actionName.c_str());
    if (isShownByUiOnly(actionName)) {
        return;
    }
    vrp_action_data_s* actionData = nullptr;
    const int result = vrp_response_data_get_action_data(response, &actionData);
    if (result != VRP_ERROR_NONE) {
        LOGE("vrp_response_data_get_action_data() failed: [%d]", result);
        return;
    }
    if (actionData == nullptr) {
        return;
    }
    vrp_web_search_data_s* search = nullptr;
    vrp_web_search_action_data_get_web_search_data(actionData, &search);
    const std::string url = urlOf(search);
    LOGD("%s", url.c_str());
    launch(url);
}

void WebLauncher::launch(std::string url) {
    AppControlData request;
    request.setOperation(APP_CONTROL_OPERATION_VIEW).setUri(url);
    AppControl::performAppControl(request);
}

}  // namespace Util

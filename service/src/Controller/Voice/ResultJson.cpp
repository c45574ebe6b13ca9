// SPDX-License-Identifier: Apache-2.0
#include "Controller/Voice/ResultJson.h"

#include "Util/Constants.h"
#include "Util/FileHelper.h"
#include "Util/Text.h"

namespace OrvaneDA {

std::string resultJson(const char* text, vc_cmd_list_s* list, const Util::Caller& caller) {
    if (text == nullptr) {
        return "";
    }
    LOGD_FOR(caller, "Result Text - %s", text);
    vc_cmd_h command = nullptr;
    char* json = nullptr;
    vc_cmd_list_first(list);
    vc_cmd_list_get_current(list, &command);
    vc_cmd_get_nlu_json(command, &json);
    const Util::PlatformText owned(json);
    if (owned != nullptr) {
        LOGD_FOR(caller, "Json Text - %s", owned.get());
    }
    return Util::copied(owned);
}

ErrorType writeResultFile(const std::string& json) {
    Util::FileContent file(Constants::File::RESULT_JSON);
    file.setCopiedData(json.c_str(), static_cast<int>(json.size()));
    file.nullTerminate = true;
    return Util::FileHelper::write(file) ? ErrorType::None : ErrorType::NoResultJson;
}

}  // namespace OrvaneDA

// SPDX-License-Identifier: Apache-2.0
// Logs the wake engine's reports other than detections.
#include <map>

#include "Controller/Trigger/vocon_4_10/WuWTrigger.h"
#include "Util/Log.h"

namespace OrvaneDA {

void WuWTrigger::OnCanceled() {
    LOGD("Canced");
}

void WuWTrigger::OnError(nuance::IWakeupListener::Error code, const std::string& detail) {
    LOGE("Error");
    LOGE("======================================");
    LOGE(" Error occurred during recognition! ");
    LOGE("  - code   : (%s)", getErrorCode(code).c_str());
    LOGE("  - detail : %s", detail.c_str());
    LOGE("====================================");
}

void WuWTrigger::OnWarning(nuance::IWakeupListener::Warning code, const std::string& detail) {
    LOGW("Warning");
    LOGW("======================================");
    LOGW(" Warning occurred during recognition! ");
    LOGW("  - code   : (%s)", getWarningCode(code).c_str());
    LOGW("  - detail : %s", detail.c_str());
    LOGW("====================================");
}

const std::string& WuWTrigger::getErrorCode(nuance::IWakeupListener::Error code) {
    static const std::map<int, std::string> NAMES = {{0, "NOT_ENOUGH_RESOURCE"},      {1, "NOT_IN_PROPER_STATE"},
                                                     {2, "INVALID_ARGUMENT"},         {3, "WRONG_VOCON_DATA"},
                                                     {4, "ERROR_FROM_USER_CALLBACK"}, {5, "NOT_SUPPORTED"},
                                                     {6, "VOCON_INTERNAL_ERROR"},     {7, "COULD_NOT_FIND_ACMOD"},
                                                     {8, "COULD_NOT_FIND_CLC"},       {9, "ERROR_FROM_CONFIG_PARSER"}};
    return NAMES.at(code);
}

const std::string& WuWTrigger::getWarningCode(nuance::IWakeupListener::Warning code) {
    static const std::map<int, std::string> NAMES = {{0, "NOT_INITIALIZED"},          {1, "ALREADY_LISTENING"},
                                                     {2, "FAIL_TO_CREATE_DIRECTORY"}, {3, "AUDIOIN_NOT_ATTACHED"},
                                                     {4, "WAKEUP_WORD_NOT_SET"},      {5, "FILE_OPEN_FAILED"},
                                                     {6, "INVALID_CONFIG_KEY"},       {7, "INVALID_CONFIG_VALUE"}};
    return NAMES.at(code);
}

}  // namespace OrvaneDA

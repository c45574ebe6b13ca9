// SPDX-License-Identifier: Apache-2.0
#include "voice_control_manager.h"

#include <cstring>
#include <memory>

#include "ManagerCall.h"
#include "Settings.h"
#include "dlog.h"

namespace voice {

std::unique_ptr<Manager>& currentManager() {
    static std::unique_ptr<Manager> manager;
    return manager;
}

}  // namespace voice

using voice::callManager;
using voice::Manager;

extern "C" {

int vc_mgr_initialize(void) {
    return process::guarded(voice::kFailures, __func__, []() -> int {
        if (!voice::currentManager()) {
            voice::currentManager() = std::make_unique<Manager>();
        }
        return VC_ERROR_NONE;
    });
}

int vc_mgr_deinitialize(void) {
    return callManager(__func__, [](Manager&) {
        voice::currentManager().reset();
        return VC_ERROR_NONE;
    });
}

int vc_mgr_prepare(void) {
    return callManager(__func__, [](Manager& manager) { return manager.prepare(); });
}

int vc_mgr_foreach_supported_languages(vc_supported_language_cb callback, void* user_data) {
    if (!callback) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    return callManager(__func__, [&](Manager& manager) {
        for (const voice::Language& language : manager.settings().languages()) {
            if (!callback(language.id.c_str(), user_data)) {
                break;
            }
        }
        return VC_ERROR_NONE;
    });
}

int vc_mgr_set_domain(const char* domain) {
    if (!domain) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    return callManager(__func__, [&](Manager&) {
        dlog_print(DLOG_INFO, "orvane-voice", "domain: %s", domain);
        return VC_ERROR_NONE;
    });
}

int vc_mgr_set_preloaded_commands_from_file(const char* path) {
    return path ? callManager(__func__, [&](Manager& manager) { return manager.setSentenceFile(path); })
                : VC_ERROR_INVALID_PARAMETER;
}

int vc_mgr_set_private_data(const char* key, const char* data) {
    return key && data ? callManager(__func__, [&](Manager& manager) { return manager.setPrivateData(key, data); })
                       : VC_ERROR_INVALID_PARAMETER;
}

int vc_mgr_set_recognition_mode(vc_recognition_mode_e mode) {
    return callManager(__func__, [&](Manager& manager) { return manager.setMode(mode); });
}

int vc_mgr_set_command_list(vc_cmd_list_h list) {
    // Ignores the list. It contains only the service's domains; the sentence file contains their sentences.
    return list ? callManager(__func__, [](Manager&) { return VC_ERROR_NONE; }) : VC_ERROR_INVALID_PARAMETER;
}

int vc_mgr_unset_command_list(void) {
    return callManager(__func__, [](Manager&) { return VC_ERROR_NONE; });
}

int vc_mgr_start(bool) {
    return callManager(__func__, [](Manager& manager) { return manager.start(); });
}

int vc_mgr_stop(void) {
    return callManager(__func__, [](Manager& manager) { return manager.stop(); });
}

int vc_mgr_cancel(void) {
    return callManager(__func__, [](Manager& manager) { return manager.cancel(); });
}

int vc_mgr_set_selected_results(vc_cmd_list_h list) {
    return callManager(__func__, [&](Manager& manager) { return manager.select(list); });
}

int vc_mgr_get_error_message(char** message) {
    if (!message) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    return callManager(__func__, [&](Manager& manager) {
        *message = strdup(manager.errorMessage().c_str());
        return *message ? VC_ERROR_NONE : VC_ERROR_OUT_OF_MEMORY;
    });
}
}

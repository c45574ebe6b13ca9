// SPDX-License-Identifier: Apache-2.0
#include "voice_control_manager.h"

#include <cstring>
#include <memory>

#include "Manager.h"
#include "Settings.h"
#include "dlog.h"

namespace {

// Between vc_mgr_initialize and vc_mgr_deinitialize.
std::unique_ptr<voice::Manager> manager;

// Runs the call on the manager, exceptions turned into codes.
template <typename Call>
int call(const Call& onManager) noexcept {
    if (!manager) {
        return VC_ERROR_INVALID_STATE;
    }
    try {
        return onManager(*manager);
    } catch (const std::bad_alloc&) {
        return VC_ERROR_OUT_OF_MEMORY;
    } catch (const std::exception& fault) {
        dlog_print(DLOG_ERROR, "orvane-voice", "%s", fault.what());
        return VC_ERROR_OPERATION_FAILED;
    }
}

template <typename Function>
int set(voice::Callback<Function> voice::Callbacks::*member, Function callback, void* userData) {
    return call([&](voice::Manager& to) {
        to.callbacks.*member = {callback, userData};
        return VC_ERROR_NONE;
    });
}

template <typename Function>
int setGiven(voice::Callback<Function> voice::Callbacks::*member, Function callback, void* userData) {
    return callback ? set(member, callback, userData) : VC_ERROR_INVALID_PARAMETER;
}

using voice::Callbacks;

}  // namespace

extern "C" {

int vc_mgr_initialize(void) {
    if (manager) {
        return VC_ERROR_NONE;
    }
    try {
        manager = std::make_unique<voice::Manager>();
        return VC_ERROR_NONE;
    } catch (const std::exception& fault) {
        dlog_print(DLOG_ERROR, "orvane-voice", "%s", fault.what());
        return VC_ERROR_OPERATION_FAILED;
    }
}

int vc_mgr_deinitialize(void) {
    if (!manager) {
        return VC_ERROR_INVALID_STATE;
    }
    manager.reset();
    return VC_ERROR_NONE;
}

int vc_mgr_prepare(void) {
    return call([](voice::Manager& to) { return to.prepare(); });
}

int vc_mgr_foreach_supported_languages(vc_supported_language_cb callback, void* user_data) {
    if (!callback) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    return call([&](voice::Manager&) {
        for (const voice::Language& language : voice::Settings::get().languages()) {
            if (!callback(language.id.c_str(), user_data)) {
                break;
            }
        }
        return VC_ERROR_NONE;
    });
}

int vc_mgr_set_state_changed_cb(vc_state_changed_cb callback, void* user_data) {
    return setGiven(&Callbacks::state, callback, user_data);
}
int vc_mgr_unset_state_changed_cb(void) {
    return set<vc_state_changed_cb>(&Callbacks::state, nullptr, nullptr);
}

int vc_mgr_set_service_state_changed_cb(vc_mgr_service_state_changed_cb callback, void* user_data) {
    return setGiven(&Callbacks::serviceState, callback, user_data);
}
int vc_mgr_unset_service_state_changed_cb(void) {
    return set<vc_mgr_service_state_changed_cb>(&Callbacks::serviceState, nullptr, nullptr);
}

int vc_mgr_set_all_result_cb(vc_mgr_all_result_cb callback, void* user_data) {
    return setGiven(&Callbacks::allResult, callback, user_data);
}
int vc_mgr_unset_all_result_cb(void) {
    return set<vc_mgr_all_result_cb>(&Callbacks::allResult, nullptr, nullptr);
}

int vc_mgr_set_pre_result_cb(vc_mgr_pre_result_cb callback, void* user_data) {
    return setGiven(&Callbacks::preResult, callback, user_data);
}
int vc_mgr_unset_pre_result_cb(void) {
    return set<vc_mgr_pre_result_cb>(&Callbacks::preResult, nullptr, nullptr);
}

int vc_mgr_set_error_cb(vc_error_cb callback, void* user_data) {
    return setGiven(&Callbacks::error, callback, user_data);
}
int vc_mgr_unset_error_cb(void) {
    return set<vc_error_cb>(&Callbacks::error, nullptr, nullptr);
}

int vc_mgr_set_speech_detected_cb(vc_mgr_speech_detected_cb callback, void* user_data) {
    return setGiven(&Callbacks::speechDetected, callback, user_data);
}
int vc_mgr_unset_speech_detected_cb(void) {
    return set<vc_mgr_speech_detected_cb>(&Callbacks::speechDetected, nullptr, nullptr);
}

int vc_mgr_set_current_language_changed_cb(vc_current_language_changed_cb callback, void* user_data) {
    return setGiven(&Callbacks::languageChanged, callback, user_data);
}
int vc_mgr_unset_current_language_changed_cb(void) {
    return set<vc_current_language_changed_cb>(&Callbacks::languageChanged, nullptr, nullptr);
}

int vc_mgr_set_domain(const char* domain) {
    if (!domain) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    return call([&](voice::Manager&) {
        dlog_print(DLOG_INFO, "orvane-voice", "domain: %s", domain);
        return VC_ERROR_NONE;
    });
}

int vc_mgr_set_preloaded_commands_from_file(const char* path) {
    return path ? call([&](voice::Manager& to) { return to.setCommandFile(path); }) : VC_ERROR_INVALID_PARAMETER;
}

int vc_mgr_set_private_data(const char* key, const char* data) {
    return key && data ? call([&](voice::Manager& to) { return to.setPrivateData(key, data); })
                       : VC_ERROR_INVALID_PARAMETER;
}

int vc_mgr_set_recognition_mode(vc_recognition_mode_e mode) {
    return call([&](voice::Manager& to) { return to.setMode(mode); });
}

int vc_mgr_set_command_list(vc_cmd_list_h list) {
    // The domains in the list are the service's own; the sentences that lead to them come with the file of commands.
    return list ? call([](voice::Manager&) { return VC_ERROR_NONE; }) : VC_ERROR_INVALID_PARAMETER;
}

int vc_mgr_unset_command_list(void) {
    return call([](voice::Manager&) { return VC_ERROR_NONE; });
}

int vc_mgr_start(bool) {
    return call([](voice::Manager& to) { return to.start(); });
}

int vc_mgr_stop(void) {
    return call([](voice::Manager& to) { return to.stop(); });
}

int vc_mgr_cancel(void) {
    return call([](voice::Manager& to) { return to.cancel(); });
}

int vc_mgr_set_selected_results(vc_cmd_list_h list) {
    return call([&](voice::Manager& to) { return to.select(list); });
}

int vc_mgr_get_error_message(char** message) {
    if (!message) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    return call([&](voice::Manager& to) {
        *message = strdup(to.errorMessage().c_str());
        return *message ? VC_ERROR_NONE : VC_ERROR_OUT_OF_MEMORY;
    });
}
}

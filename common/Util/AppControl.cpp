// SPDX-License-Identifier: Apache-2.0
#include "Util/AppControl.h"

#include <app_manager.h>

#include <memory>

namespace Util {

AsyncThread AppControl::asyncThread;

namespace {

int resultOrLogged(int result, const char* message, const Caller& caller) {
    succeededOrLogged(result, message, caller);
    return result;
}

int setText(app_control_h handle, int (*setter)(app_control_h, const char*), const std::string& text,
            const char* message, const Caller& caller) {
    return text.empty() ? APP_CONTROL_ERROR_NONE : resultOrLogged(setter(handle, text.c_str()), message, caller);
}

int addExtras(app_control_h handle, const AppControlData& data, const Caller& caller) {
    for (const auto& [key, value] : data.getExtraDataMap()) {
        if (key.empty() || value.empty()) {
            continue;
        }
        const int result = app_control_add_extra_data(handle, key.c_str(), value.c_str());
        if (!succeededOrLogged(result, "Failed to add extra data", caller)) {
            return result;
        }
    }
    return APP_CONTROL_ERROR_NONE;
}

int addExtraVectors(app_control_h handle, const AppControlData& data, const Caller& caller) {
    for (const auto& [key, values] : data.getExtraVectorDataMap()) {
        if (key.empty()) {
            continue;
        }
        std::vector<const char*> texts;
        for (const std::string& value : values) {
            texts.push_back(value.c_str());
        }
        const int result =
            app_control_add_extra_data_array(handle, key.c_str(), texts.data(), static_cast<int>(texts.size()));
        if (!succeededOrLogged(result, "Failed to add extra vector data", caller)) {
            return result;
        }
    }
    return APP_CONTROL_ERROR_NONE;
}

int fill(app_control_h handle, const AppControlData& data, const Caller& caller) {
    int result = setText(handle, app_control_set_app_id, data.getPackageName(), "Failed to set app id", caller);
    if (result == APP_CONTROL_ERROR_NONE) {
        result = setText(handle, app_control_set_operation, data.getOperation(), "Failed to set operation", caller);
    }
    if (result == APP_CONTROL_ERROR_NONE) {
        result = setText(handle, app_control_set_uri, data.getUri(), "Failed to set uri", caller);
    }
    if (result == APP_CONTROL_ERROR_NONE) {
        result = addExtras(handle, data, caller);
    }
    return result == APP_CONTROL_ERROR_NONE ? addExtraVectors(handle, data, caller) : result;
}

int send(app_control_h handle, const AppControlData& data) {
    if (data.getRequestedAppControl() != nullptr) {
        return app_control_reply_to_launch_request(handle, data.getRequestedAppControl(), data.getResultCode());
    }
    return app_control_send_launch_request(handle, data.getReplyCallback(), data.getReplyCallbackUserData());
}

}  // namespace

int AppControl::performAppControl(AppControlData& data) {
    // The handle of a received request is valid only on the thread that received it.
    if (data.getRequestedAppControl() != nullptr) {
        LOGE("Reply App Control must be called by sync");
        return -1;
    }
    auto copy = std::make_shared<AppControlData>(data);
    asyncThread.asyncCall([copy] {
        performAppControlSync(*copy);
        return false;
    });
    return APP_CONTROL_ERROR_NONE;
}

int AppControl::performAppControlSync(AppControlData& data) {
    return data.getTerminateRequest() ? terminate(data, Caller::current()) : launch(data, Caller::current());
}

// The handle is deliberately not destroyed if filling or sending the request fails.
int AppControl::launch(const AppControlData& data, const Caller& caller) {
    app_control_h handle = nullptr;
    int result = app_control_create(&handle);
    if (!succeededOrLogged(result, "Failed to create app_control handle", caller)) {
        return result;
    }
    result = fill(handle, data, caller);
    if (result != APP_CONTROL_ERROR_NONE) {
        return result;
    }
    result = send(handle, data);
    if (!succeededOrLogged(result, "Failed to launch request", caller)) {
        return result;
    }
    return resultOrLogged(app_control_destroy(handle), "Failed to destroy app_control handle", caller);
}

int AppControl::terminate(const AppControlData& data, const Caller& caller) {
    const char* package = data.getPackageName().c_str();
    if (data.getPackageName().empty()) {
        return -1;
    }
    bool running = false;
    const int result = app_manager_is_running(package, &running);
    if (result != APP_MANAGER_ERROR_NONE || !running) {
        return result;
    }
    LOGD_FOR(caller, "Terminate target app");
    app_context_h context = nullptr;
    app_manager_get_app_context(package, &context);
    if (context == nullptr) {
        LOGE_FOR(caller, "Failed to get app_context handle");
        return -1;
    }
    const int terminated = app_manager_terminate_app(context);
    const bool success = succeededOrLogged(terminated, "Failed to terminate bg app", caller);
    app_context_destroy(context);
    return success ? 0 : -1;
}

}  // namespace Util

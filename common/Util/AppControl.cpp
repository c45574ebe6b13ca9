// SPDX-License-Identifier: Apache-2.0
#include "Util/AppControl.h"

#include <app_manager.h>

#include <memory>
#include <utility>

#include "Util/Log.h"
#include "Util/Text.h"

namespace Util {

AsyncThread AppControl::asyncThread;

AppControlData::AppControlData() {
    clearData();
}

AppControlData::AppControlData(app_control_h& handle) {
    clearData();
    if (handle == nullptr) {
        return;
    }
    char* text = nullptr;
    app_control_get_app_id(handle, &text);
    mPackageName = copied(PlatformText(std::exchange(text, nullptr)));
    app_control_get_operation(handle, &text);
    mOperation = copied(PlatformText(std::exchange(text, nullptr)));
    app_control_get_uri(handle, &text);
    mUri = copied(PlatformText(std::exchange(text, nullptr)));
    app_control_foreach_extra_data(handle, readExtra, this);
}

bool AppControlData::readExtra(app_control_h handle, const char* key, void* data) noexcept {
    auto* self = static_cast<AppControlData*>(data);
    bool isArray = false;
    if (app_control_is_extra_data_array(handle, key, &isArray) != APP_CONTROL_ERROR_NONE) {
        LOGE("app_control_is_extra_data_array() failed");
        return true;
    }
    if (!isArray) {
        char* value = nullptr;
        app_control_get_extra_data(handle, key, &value);
        self->addExtraData(key, copied(PlatformText(value)));
        return true;
    }
    char** values = nullptr;
    int length = 0;
    app_control_get_extra_data_array(handle, key, &values, &length);
    std::unique_ptr<char*, Free> array(values);
    std::vector<std::string> elements;
    for (int i = 0; values != nullptr && i < length; ++i) {
        elements.push_back(copied(PlatformText(values[i])));
    }
    self->addExtraVectorData(key, elements);
    return true;
}

AppControlData& AppControlData::setPackageName(const std::string& packageName) {
    mPackageName = packageName;
    return *this;
}

AppControlData& AppControlData::setOperation(const std::string& operation) {
    mOperation = operation;
    return *this;
}

AppControlData& AppControlData::setUri(const std::string& uri) {
    mUri = uri;
    return *this;
}

void AppControlData::setReplyCallback(app_control_reply_cb callback, void* userData) {
    mReplyCallback = callback;
    mReplyCallbackUserData = userData;
}

void AppControlData::setRequestedAppControl(app_control_h handle) {
    mRequestedAppControl = handle;
}

void AppControlData::setResultCode(app_control_result_e code) {
    mResultCode = code;
}

void AppControlData::setTerminateRequest(bool terminate) {
    mTerminateRequest = terminate;
}

void AppControlData::addExtraData(const std::string& key, const std::string& value) {
    mExtraData[key] = value;
}

void AppControlData::addExtraVectorData(const std::string& key, const std::vector<std::string>& values) {
    mExtraVectorData[key] = values;
}

std::string& AppControlData::getExtraData(const std::string& key) {
    return mExtraData[key];
}

std::vector<std::string>& AppControlData::getExtraVectorData(const std::string& key) {
    return mExtraVectorData[key];
}

void AppControlData::clearExtraData() {
    mExtraData.clear();
}

void AppControlData::clearExtraVectorData() {
    mExtraVectorData.clear();
}

void AppControlData::clearData() {
    mPackageName.clear();
    mOperation.clear();
    mUri.clear();
    mReplyCallback = nullptr;
    mReplyCallbackUserData = nullptr;
    mRequestedAppControl = nullptr;
    mResultCode = APP_CONTROL_RESULT_APP_STARTED;
    mExtraData.clear();
    mExtraVectorData.clear();
    mTerminateRequest = false;
}

int AppControl::performAppControl(AppControlData& data) {
    // The handle of a received request lives only on the thread that received it.
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
    return data.getTerminateRequest() ? terminate(data) : launch(data);
}

namespace {

int addExtras(app_control_h handle, const AppControlData& data) {
    for (const auto& [key, value] : data.getExtraDataMap()) {
        if (key.empty() || value.empty()) {
            continue;
        }
        const int result = app_control_add_extra_data(handle, key.c_str(), value.c_str());
        if (result != APP_CONTROL_ERROR_NONE) {
            LOGE("Failed to add extra data");
            return result;
        }
    }
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
        if (result != APP_CONTROL_ERROR_NONE) {
            LOGE("Failed to add extra vector data");
            return result;
        }
    }
    return APP_CONTROL_ERROR_NONE;
}

int fill(app_control_h handle, const AppControlData& data) {
    int result = APP_CONTROL_ERROR_NONE;
    if (!data.getPackageName().empty()) {
        result = app_control_set_app_id(handle, data.getPackageName().c_str());
        if (result != APP_CONTROL_ERROR_NONE) {
            LOGE("Failed to set app id");
            return result;
        }
    }
    if (!data.getOperation().empty()) {
        result = app_control_set_operation(handle, data.getOperation().c_str());
        if (result != APP_CONTROL_ERROR_NONE) {
            LOGE("Failed to set operation");
            return result;
        }
    }
    if (!data.getUri().empty()) {
        result = app_control_set_uri(handle, data.getUri().c_str());
        if (result != APP_CONTROL_ERROR_NONE) {
            LOGE("Failed to set uri");
            return result;
        }
    }
    return addExtras(handle, data);
}

}  // namespace

// A failure between creation and the launch abandons the handle: the platform may still hold on to a half-sent request.
int AppControl::launch(AppControlData& data) {
    app_control_h handle = nullptr;
    int result = app_control_create(&handle);
    if (result != APP_CONTROL_ERROR_NONE) {
        LOGE("Failed to create app_control handle");
        return result;
    }
    result = fill(handle, data);
    if (result != APP_CONTROL_ERROR_NONE) {
        return result;
    }
    if (data.getRequestedAppControl() != nullptr) {
        result = app_control_reply_to_launch_request(handle, data.getRequestedAppControl(), data.getResultCode());
    } else {
        result = app_control_send_launch_request(handle, data.getReplyCallback(), data.getReplyCallbackUserData());
    }
    if (result != APP_CONTROL_ERROR_NONE) {
        LOGE("Failed to launch request");
        return result;
    }
    const int destroyed = app_control_destroy(handle);
    if (destroyed != APP_CONTROL_ERROR_NONE) {
        LOGE("Failed to destroy app_control handle");
        return destroyed;
    }
    return result;
}

int AppControl::terminate(AppControlData& data) {
    const char* package = data.getPackageName().c_str();
    if (data.getPackageName().empty()) {
        return -1;
    }
    bool running = false;
    const int result = app_manager_is_running(package, &running);
    if (result != APP_MANAGER_ERROR_NONE) {
        return result;
    }
    if (!running) {
        return 0;
    }
    LOGD("Terminate target app");
    app_context_h context = nullptr;
    app_manager_get_app_context(package, &context);
    if (context == nullptr) {
        LOGE("Failed to get app_context handle");
        return -1;
    }
    const bool terminated = app_manager_terminate_app(context) == APP_MANAGER_ERROR_NONE;
    if (!terminated) {
        LOGE("Failed to terminate bg app");
    }
    app_context_destroy(context);
    return terminated ? 0 : -1;
}

}  // namespace Util

// SPDX-License-Identifier: Apache-2.0
#include "Util/AppControlData.h"

#include <memory>

#include "Util/Log.h"
#include "Util/Text.h"

namespace Util {

namespace {

std::string textOf(int (*getter)(app_control_h, char**), app_control_h handle) {
    char* text = nullptr;
    getter(handle, &text);
    return copied(PlatformText(text));
}

std::vector<std::string> arrayOf(app_control_h handle, const char* key) {
    char** values = nullptr;
    int length = 0;
    app_control_get_extra_data_array(handle, key, &values, &length);
    const std::unique_ptr<char*, Free> array(values);
    std::vector<std::string> elements;
    for (int i = 0; values != nullptr && i < length; ++i) {
        elements.push_back(copied(PlatformText(values[i])));
    }
    return elements;
}

}  // namespace

AppControlData::AppControlData(app_control_h& handle) {
    if (handle == nullptr) {
        return;
    }
    mPackageName = textOf(app_control_get_app_id, handle);
    mOperation = textOf(app_control_get_operation, handle);
    mUri = textOf(app_control_get_uri, handle);
    app_control_foreach_extra_data(handle, readExtra, this);
}

bool AppControlData::readExtra(app_control_h handle, const char* key, void* data) noexcept {
    auto* self = static_cast<AppControlData*>(data);
    bool isArray = false;
    if (app_control_is_extra_data_array(handle, key, &isArray) != APP_CONTROL_ERROR_NONE) {
        LOGE("app_control_is_extra_data_array() failed");
        return true;
    }
    if (isArray) {
        self->addExtraVectorData(key, arrayOf(handle, key));
    } else {
        char* value = nullptr;
        app_control_get_extra_data(handle, key, &value);
        self->addExtraData(key, copied(PlatformText(value)));
    }
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

}  // namespace Util

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <app_control.h>

#include <map>
#include <string>
#include <vector>

namespace Util {

// A request to an application, or a reply to one. A plain value; only AppControl converts it to a platform handle.
class AppControlData {
public:
    AppControlData() = default;
    // Reads the application id, operation, URI, and all extras of a received request. A null handle results in the
    // defaults.
    explicit AppControlData(app_control_h& handle);
    AppControlData(const AppControlData&) = default;
    AppControlData& operator=(const AppControlData&) = default;
    virtual ~AppControlData() = default;

    AppControlData& setPackageName(const std::string& packageName);
    AppControlData& setOperation(const std::string& operation);
    AppControlData& setUri(const std::string& uri);
    void setReplyCallback(app_control_reply_cb callback, void* userData);
    // Makes this object a reply to the received request.
    void setRequestedAppControl(app_control_h handle);
    void setResultCode(app_control_result_e code);
    // true: the application is closed instead of launched.
    void setTerminateRequest(bool terminate);

    const std::string& getPackageName() const { return mPackageName; }
    const std::string& getOperation() const { return mOperation; }
    const std::string& getUri() const { return mUri; }
    app_control_reply_cb getReplyCallback() const { return mReplyCallback; }
    void* getReplyCallbackUserData() const { return mReplyCallbackUserData; }
    app_control_h getRequestedAppControl() const { return mRequestedAppControl; }
    app_control_result_e getResultCode() const { return mResultCode; }
    const std::map<std::string, std::string>& getExtraDataMap() const { return mExtraData; }
    const std::map<std::string, std::vector<std::string>>& getExtraVectorDataMap() const { return mExtraVectorData; }
    bool getTerminateRequest() const { return mTerminateRequest; }

    // Insert or replace.
    void addExtraData(const std::string& key, const std::string& value);
    void addExtraVectorData(const std::string& key, const std::vector<std::string>& values);
    // Reading an absent key inserts an empty value.
    std::string& getExtraData(const std::string& key);
    std::vector<std::string>& getExtraVectorData(const std::string& key);
    void clearExtraData();
    void clearExtraVectorData();
    // Resets everything to the defaults and sets the result code to 1.
    void clearData();

private:
    static bool readExtra(app_control_h handle, const char* key, void* data) noexcept;

    std::string mPackageName;
    std::string mOperation;
    std::string mUri;
    app_control_reply_cb mReplyCallback = nullptr;
    void* mReplyCallbackUserData = nullptr;
    app_control_h mRequestedAppControl = nullptr;
    app_control_result_e mResultCode = APP_CONTROL_RESULT_APP_STARTED;
    std::map<std::string, std::string> mExtraData;
    std::map<std::string, std::vector<std::string>> mExtraVectorData;
    bool mTerminateRequest = false;
};

}  // namespace Util

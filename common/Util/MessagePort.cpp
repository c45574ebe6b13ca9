// SPDX-License-Identifier: Apache-2.0
#include "Util/MessagePort.h"

#include <message_port.h>

#include "Util/Log.h"

namespace Util {

MessageData& MessageData::addData(std::string key, std::string value) {
    mData[std::move(key)] = std::move(value);
    return *this;
}

void MessageData::removeData(std::string key) {
    mData.erase(key);
}

std::string& MessageData::operator[](std::string key) {
    return mData[std::move(key)];
}

void MessageData::clear() {
    mData.clear();
}

bundle* makeBundle(const MessageData& data) {
    bundle* result = bundle_create();
    if (result != nullptr) {
        for (const auto& [key, value] : data.getDataMap()) {
            bundle_add_str(result, key.c_str(), value.c_str());
        }
    }
    return result;
}

MessagePort::MessagePort() {
    LOGD("");
}

MessagePort::~MessagePort() {
    LOGD("");
    if (mLocalPortId != -1) {
        message_port_unregister_trusted_local_port(mLocalPortId);
    }
}

bool MessagePort::setTarget(const std::string& appId, const std::string& port) {
    mTargetAppId = appId;
    mTargetPort = port;
    return true;
}

bool MessagePort::isTargetAlive(const std::string& appId, const std::string& port) const {
    bool exists = false;
    if (message_port_check_trusted_remote_port(appId.c_str(), port.c_str(), &exists) != MESSAGE_PORT_ERROR_NONE) {
        LOGE("target port is not alive");
        return false;
    }
    LOGD("%d", exists);
    return exists;
}

bool MessagePort::sendMessage(const MessageData& data) const {
    if (!isTargetAlive(mTargetAppId, mTargetPort)) {
        return false;
    }
    bundle* message = makeBundle(data);
    if (message == nullptr) {
        return false;
    }
    if (mLocalPortId == -1) {
        message_port_send_trusted_message(mTargetAppId.c_str(), mTargetPort.c_str(), message);
    } else {
        message_port_send_trusted_message_with_local_port(mTargetAppId.c_str(), mTargetPort.c_str(), message,
                                                          mLocalPortId);
    }
    bundle_free(message);
    return true;
}

bool MessagePort::setCallBack(const std::string& localPort, const Callback& callback, void* userData) {
    if (localPort.empty() || mLocalPortId != -1) {
        LOGE("set callback fail");
        return false;
    }
    mLocalPortName = localPort;
    mCallbackHolder = std::make_unique<CallbackHolder>(CallbackHolder{callback, userData});
    mLocalPortId =
        message_port_register_trusted_local_port(localPort.c_str(), _message_received_cb, mCallbackHolder.get());
    return true;
}

void MessagePort::_message_received_cb(int, const char* remoteAppId, const char* remotePort, bool, bundle* message,
                                       void* data) noexcept {
    MessageData received;
    bundle_foreach(
        message,
        [](const char* key, const int type, const bundle_keyval_t* entry, void* target) noexcept {
            void* value = nullptr;
            size_t size = 0;
            if (type == BUNDLE_TYPE_STR &&
                bundle_keyval_get_basic_val(const_cast<bundle_keyval_t*>(entry), &value, &size) == BUNDLE_ERROR_NONE) {
                static_cast<MessageData*>(target)->addData(key, static_cast<const char*>(value));
            }
        },
        &received);
    const auto* holder = static_cast<CallbackHolder*>(data);
    holder->callback(received, remoteAppId ? remoteAppId : "", remotePort ? remotePort : "", holder->userData);
}

}  // namespace Util

// SPDX-License-Identifier: Apache-2.0
// Sends key/value messages to a named port of a running application, through the platform's trusted message ports.
#pragma once

#include <bundle.h>

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace Util {

class MessageData {
public:
    virtual ~MessageData() = default;

    // Inserts or replaces; returns itself for chaining.
    MessageData& addData(std::string key, std::string value);
    void removeData(std::string key);
    // Reading an absent key inserts an empty value.
    std::string& operator[](std::string key);
    void clear();

    const std::map<std::string, std::string>& getDataMap() const { return mData; }

private:
    std::map<std::string, std::string> mData;
};

// All entries in key order; null on failure. The caller frees the bundle with bundle_free.
bundle* makeBundle(const MessageData& data);

class MessagePort {
public:
    using Callback = std::function<void(MessageData message, std::string remoteAppId, std::string remotePort, void*)>;

    MessagePort();
    virtual ~MessagePort();
    MessagePort(const MessagePort&) = delete;
    MessagePort& operator=(const MessagePort&) = delete;

    bool setTarget(const std::string& appId, const std::string& port);
    bool isTargetAlive(const std::string& appId, const std::string& port) const;
    // Any thread. Returns false if the target's port does not exist. True does not mean that the platform accepted the
    // message.
    bool sendMessage(const MessageData& data) const;
    // Registers the local port, at most once per object. The callback runs on the main loop.
    bool setCallBack(const std::string& localPort, const Callback& callback, void* userData);

private:
    struct CallbackHolder {
        Callback callback;
        void* userData;
    };

    static void _message_received_cb(int localPortId, const char* remoteAppId, const char* remotePort, bool trusted,
                                     bundle* message, void* holder) noexcept;

    std::unique_ptr<CallbackHolder> mCallbackHolder;
    std::string mLocalPortName;  // kept, although nothing reads it
    std::string mTargetAppId;
    std::string mTargetPort;
    int mLocalPortId = -1;
};

}  // namespace Util

// SPDX-License-Identifier: Apache-2.0
// A stand-in for NetworkManager: its properties State and PrimaryConnectionType, and the signal of their change.
#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <thread>

#include "gio/Connection.h"
#include "gio/MainLoop.h"

class ManagerStandIn {
public:
    // Connects to the bus, and owns the name only from appear() on. It answers on its own thread.
    explicit ManagerStandIn(const std::string& busAddress);
    ~ManagerStandIn();
    ManagerStandIn(const ManagerStandIn&) = delete;
    ManagerStandIn& operator=(const ManagerStandIn&) = delete;

    void appear() { mName = mBus.ownName("org.freedesktop.NetworkManager"); }
    void disappear() { mName.releaseName(); }
    void become(std::uint32_t state, const std::string& type);
    // While frozen, it answers no call.
    void freeze(bool frozen);
    // The number of calls that it did not answer.
    int unanswered();

private:
    using Properties = std::map<std::string, gio::Variant>;
    Properties properties() const;
    void answer(gio::MethodCall& call);

    std::mutex mMutex;
    std::uint32_t mState = 20;
    std::string mType;
    bool mFrozen = false;
    int mUnanswered = 0;
    gio::MainLoop mLoop{gio::Context()};
    gio::Connection mBus;
    gio::Registration mObject;
    gio::OwnedName mName;
    std::thread mThread;
};

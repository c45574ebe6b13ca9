// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <net_connection.h>

#include <functional>
#include <memory>

#include "gio/Connection.h"
#include "gio/IoThread.h"

namespace network {

// The client of NetworkManager on the system bus. IO thread only; it never blocks. It reconnects to a missing or lost
// bus and repeats unanswered queries.
class NetworkManager {
public:
    // `changed` runs when it is first known whether NetworkManager is running, and whenever NetworkManager appears,
    // disappears, or reports a change; never within this constructor.
    NetworkManager(gio::IoThread& thread, std::function<void()> changed);
    NetworkManager(const NetworkManager&) = delete;
    NetworkManager& operator=(const NetworkManager&) = delete;

    bool isKnown() const { return mState != State::Unknown; }
    bool isRunning() const { return mState == State::Running; }
    connection_type_e type() const { return mType; }

private:
    enum class State { Unknown, Absent, Running };

    template <typename Method>
    auto handler(Method method);
    void connect();
    void connected(gio::Connection bus);
    void lost();
    void hint(const gio::Variant& arguments);
    void ask();
    void answered(const gio::Variant& answer, const gio::CallError* error);
    void become(State state);

    const std::shared_ptr<NetworkManager*> mSelf = std::make_shared<NetworkManager*>(this);
    gio::IoThread& mThread;
    std::function<void()> mChanged;
    gio::Connection mBus{"not connected yet"};
    gio::Registration mLoss;
    gio::Registration mPropertiesChanged;
    gio::Registration mOwnerChanged;
    bool mAsking = false;
    bool mAskAgain = false;
    State mState = State::Unknown;
    connection_type_e mType = CONNECTION_TYPE_DISCONNECTED;
};

}  // namespace network

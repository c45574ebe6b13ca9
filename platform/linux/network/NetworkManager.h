// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <net_connection.h>

#include <functional>
#include <string>

#include "gio/GPointer.h"

namespace network {

// NetworkManager on the system bus, while it runs there and answers. I/O thread only, which never waits for either: a
// bus that is missing or goes is looked for again, and so is an answer that does not come.
class NetworkManager {
public:
    // `changed` is called when it is known for the first time whether it runs, and when it came, went, or changed
    // something; not within this constructor.
    explicit NetworkManager(std::function<void()> changed);
    ~NetworkManager() = delete;  // lives until the process ends

    bool isKnown() const { return mState != State::Unknown; }
    bool isRunning() const { return mState == State::Running; }
    connection_type_e type() const { return mType; }

private:
    enum class State { Unknown, Absent, Running };

    void connect();
    void connected(gio::Object<GDBusConnection> bus);
    void lost();
    void hear(const char* sender, const char* signal, const char* path, const char* interface, const char* about);
    void ask();
    void answered(GVariant* properties, bool late);
    void become(State state);

    std::function<void()> mChanged;
    gio::Object<GDBusConnection> mBus;
    bool mAsking = false;
    bool mAskAgain = false;
    State mState = State::Unknown;
    connection_type_e mType = CONNECTION_TYPE_DISCONNECTED;
};

}  // namespace network

// SPDX-License-Identifier: Apache-2.0
// A stand-in for NetworkManager on the system bus, with at most one connection.
// Action: network ethernet|wifi|none.
#pragma once

#include <string>

#include "gio/Connection.h"
#include "gio/MainLoop.h"

namespace sim {

class NetworkManager {
public:
    explicit NetworkManager(const std::string& name);
    // Returns when the bus ends.
    void run();

private:
    void onControl(const std::string& action, const std::string& kind);
    gio::Variant property(const std::string& name) const;

    std::string mName;
    std::string mKind = "ethernet";
    gio::Connection mBus = gio::Connection::openShared(G_BUS_TYPE_SYSTEM, gio::Context::main());
    gio::MainLoop mLoop{gio::Context::main()};
    gio::Registration mObject;
    gio::Registration mControl;
    gio::Registration mClosed;
};

}  // namespace sim

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "Bundle.h"
#include "bus/SessionBus.h"
#include "message_port.h"

namespace appfw {

// The message ports of this process. Messages arrive on the IO thread, which checks their sender; callbacks run on the
// main loop. Shared by the process.
class Ports {
public:
    static constexpr char kPath[] = "/org/orvane/MessagePort";
    static constexpr char kInterface[] = "org.orvane.MessagePort1";
    static constexpr char kPortNotFound[] = "org.orvane.Error.PortNotFound";
    static constexpr char kAccessDenied[] = "org.freedesktop.DBus.Error.AccessDenied";

    // The first call exports the ports on the bus. Returns false without a bus. Throws std::runtime_error.
    bool serve();
    // Returns the port's id. A known name keeps its id and gets the new callback.
    int add(const std::string& name, message_port_trusted_message_cb callback, void* userData);
    bool remove(int id);
    std::optional<std::string> nameOf(int id);

private:
    struct Port {
        std::string name;
        message_port_trusted_message_cb callback = nullptr;
        void* userData = nullptr;
    };

    void called(gio::MethodCall& call);
    void sent(gio::MethodCall& call);
    void post(int id, bundle_s message, const std::string& app, const std::string& remotePort);
    void deliver(int id, bundle_s& message, const std::string& app, const std::string& remotePort);
    std::optional<Port> portOf(int id);
    int idOf(const std::string& name);
    int find(const std::string& name) const;

    std::mutex mMutex;
    int mLastId = 0;
    std::map<int, Port> mPorts;
    std::once_flag mServing;
    gio::Registration mServed;
};

}  // namespace appfw

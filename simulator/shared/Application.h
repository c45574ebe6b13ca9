// SPDX-License-Identifier: Apache-2.0
// An application of the appliance on the session bus. It answers requests under its id, records them, and ends with a
// Close call. All functions run on the thread that calls run().
#pragma once

#include <string>
#include <vector>

#include "gio/Connection.h"
#include "gio/MainLoop.h"
#include "shared/Record.h"
#include "shared/Request.h"

namespace sim {

inline constexpr char kServiceId[] = "org.orvane.da-service";

class Application {
public:
    explicit Application(const std::string& id);
    virtual ~Application() = default;
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    // Returns after Close, SIGTERM, SIGINT, or the end of the bus.
    void run();
    void quit() { mLoop.quit(); }

    // Sends nothing when the request wants no reply.
    void reply(const Request& request, int result, const Extras& extras);
    // Emits a platform event.
    void sendEvent(const std::string& event, const Entries& data);

protected:
    virtual void onLaunch(const Request&) {}
    virtual void onMessage(const std::string& /*port*/, const Entries&) {}
    virtual bool hasPort(const std::string&) const { return false; }
    // Called for org.orvane.sim.Control1.Do. Throws std::runtime_error for an unknown action.
    virtual void onControl(const std::string& action, const std::string& argument);

    const gio::Connection& bus() { return mBus; }
    // Keeps an exported object or a watch while the application lives.
    void keep(gio::Registration registration) { mRegistrations.push_back(std::move(registration)); }
    Record& record() { return mRecord; }
    const std::string& id() const { return mId; }

private:
    void onApplicationCall(gio::MethodCall& call);
    void onPortCall(gio::MethodCall& call);

    std::string mId;
    Record mRecord;
    gio::Connection mBus = gio::Connection::openShared(G_BUS_TYPE_SESSION, gio::Context::main());
    gio::MainLoop mLoop{gio::Context::main()};
    std::vector<gio::Registration> mRegistrations;
};

}  // namespace sim

// SPDX-License-Identifier: Apache-2.0
// One application of the appliance on the session bus: answers requests under its id, keeps a record of them, ends when
// it is asked to close. Everything runs on the thread that calls run().
#pragma once

#include <functional>
#include <string>

#include "lib/Bus.h"
#include "lib/Record.h"

namespace sim {

inline constexpr char kServiceId[] = "org.orvane.da-service";
inline constexpr char kOperationBase[] = "http://orvane.example/appcontrol/operation/";

struct Request {
    std::string operation;
    std::string uri;
    Extras extras;
    std::string token;   // empty: no reply is wanted
    std::string sender;  // bus name
};

class Application {
public:
    explicit Application(const std::string& id);
    virtual ~Application() = default;
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    // Serves until closed, SIGTERM or SIGINT.
    void run();
    void quit() { g_main_loop_quit(mLoop.get()); }

    void reply(const Request& request, int result, const Extras& extras);
    void sendEvent(const std::string& event, const Entries& data);

protected:
    virtual void onLaunch(const Request&) {}
    virtual void onMessage(const std::string& /*port*/, const Entries&) {}
    virtual bool hasPort(const std::string&) const { return false; }
    // An order to the simulated application itself (org.orvane.sim.Control1.Do). Throws for what it does not know.
    virtual void onOrder(const std::string& order, const std::string& argument);

    Bus& bus() { return mBus; }
    Record& record() { return mRecord; }
    const std::string& id() const { return mId; }

private:
    GVariant* onApplicationCall(const std::string& method, const std::string& sender, GVariant* arguments);
    GVariant* onPortCall(const std::string& method, GVariant* arguments);

    std::string mId;
    Record mRecord;
    Bus mBus;
    Pointer<GMainLoop> mLoop;
};

}  // namespace sim
